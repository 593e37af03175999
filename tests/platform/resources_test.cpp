#include "platform/resources.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <utility>

namespace {

TEST(Resources, ATextIsFoundByItsId) {
    EXPECT_EQ(platform::load_string(100), L"OrderDeck");
    EXPECT_EQ(platform::load_string(101), L"設定經紀商...");
    EXPECT_EQ(platform::load_string(123), L"%s 已連線，目前無法調整設定。\n請先中斷連線。");
    EXPECT_EQ(platform::load_string(235), L"AON");
}

TEST(Resources, AnIdWithoutATextGivesNothing) {
    for (const UINT id : {0U, 99U, 112U, 129U, 143U, 232U, 236U, 65535U}) {
        EXPECT_FALSE(platform::load_string(id).has_value()) << id;
    }
}

// The size that the header chunk of a PNG file tells, in pixels; nothing when it is no PNG file.
std::pair<unsigned, unsigned> png_size(std::span<const std::byte> bytes) {
    constexpr std::array<unsigned char, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    if (bytes.size() < 24 || !std::ranges::equal(bytes.first(8), signature, {}, [](std::byte each) {
            return std::to_integer<unsigned char>(each);
        })) {
        return {0, 0};
    }
    const auto number = [&](std::size_t at) {
        unsigned result = 0;
        for (const std::byte each : bytes.subspan(at, 4)) {
            result = result << 8 | std::to_integer<unsigned>(each);
        }
        return result;
    };
    return {number(16), number(20)};
}

TEST(Resources, PicturesHaveTheSizeOfTheirButtons) {
    EXPECT_EQ(png_size(platform::load_png(211)), std::pair(48U, 16U));
    EXPECT_EQ(png_size(platform::load_png(212)), std::pair(48U, 16U));
    EXPECT_EQ(png_size(platform::load_png(232)), std::pair(48U, 16U));
}

TEST(Resources, EachPictureIsThereInTheSizesOfTheResolutionsAbove) {
    for (const UINT id : {211U, 212U, 232U}) {
        for (const unsigned size : {20U, 24U, 32U}) {
            EXPECT_EQ(png_size(platform::load_png(id * 100 + size)), std::pair(3 * size, size)) << id;
        }
    }
}

TEST(Resources, APictureEndsWithItsLastChunk) {
    for (const UINT id : {211U, 212U, 232U}) {
        const auto bytes = platform::load_png(id);
        ASSERT_GE(bytes.size(), 12U);
        constexpr std::array<unsigned char, 12> end{0, 0, 0, 0, 'I', 'E', 'N', 'D', 0xAE, 0x42, 0x60, 0x82};
        EXPECT_TRUE(std::ranges::equal(bytes.last(12), end, {}, [](std::byte each) {
            return std::to_integer<unsigned char>(each);
        })) << id;
    }
}

TEST(Resources, AnIdWithoutAPictureGivesNothing) {
    EXPECT_TRUE(platform::load_png(213).empty());
    EXPECT_TRUE(platform::load_png(100).empty());
}

TEST(Resources, TheVersionBlockOfTheProgramIsReadByName) {
    EXPECT_EQ(platform::main_version_string(L"CompanyName"), L"OrderDeck Tests");
    EXPECT_EQ(platform::main_version_string(L"ProductName"), L"platform_tests");
    EXPECT_EQ(platform::main_version_string(L"FileDescription"), L"Tests of OrderDeck");
}

TEST(Resources, AMissingVersionStringIsEmpty) {
    EXPECT_EQ(platform::main_version_string(L"NoSuchName"), L"");
    EXPECT_EQ(platform::main_version_string(L""), L"");
}

}  // namespace
