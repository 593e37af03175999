#include "options.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace host {
namespace {

TEST(HostOptions, WithNoneEverythingHasItsDefault) {
    const options value = parse_options({});
    EXPECT_EQ(value.order_log, "");
    EXPECT_EQ(value.describe, "");
    EXPECT_EQ(value.dll, "");
    EXPECT_EQ(value.settings, "");
    EXPECT_EQ(value.seed, 1u);
    EXPECT_FALSE(value.frozen_quotes);
    EXPECT_EQ(value.width, 1440);
    EXPECT_EQ(value.height, 860);
}

TEST(HostOptions, EachIsRead) {
    const options value =
        parse_options({"--order-log", "o.jsonl", "--describe", "d.json", "--dll", "x.dll", "--seed", "42",
                       "--settings", "folder", "--frozen-quotes", "--size", "1500x900"});
    EXPECT_EQ(value.order_log, "o.jsonl");
    EXPECT_EQ(value.describe, "d.json");
    EXPECT_EQ(value.dll, "x.dll");
    EXPECT_EQ(value.settings, "folder");
    EXPECT_EQ(value.seed, 42u);
    EXPECT_TRUE(value.frozen_quotes);
    EXPECT_EQ(value.width, 1500);
    EXPECT_EQ(value.height, 900);
}

TEST(HostOptions, WhatCannotBeReadIsSaid) {
    EXPECT_THROW(parse_options({"--fast"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--seed"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--seed", "x"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--seed", "-1"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--size", "1280"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--size", "639x400"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--size", "640x399"}), std::invalid_argument);
    EXPECT_THROW(parse_options({"--size", "1280x"}), std::invalid_argument);
}

}  // namespace
}  // namespace host
