// The native registry's file.
#include "platform/posix/registry_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/own_names.h"

namespace {

using platform::registry_file;
using platform::sqlite_error;

class RegistryFile : public testing::Test {
protected:
    RegistryFile() : m_folder(std::filesystem::temp_directory_path() / test_support::own_name()) {
        EXPECT_TRUE(std::filesystem::create_directory(m_folder)) << "the folder must be new";
    }
    ~RegistryFile() override { std::filesystem::remove_all(m_folder); }

    std::string path() const { return m_folder / "registry.db"; }

    static int failure(const std::string& path) {
        try {
            registry_file file(path);
        } catch (const sqlite_error& error) {
            return error.code();
        }
        return SQLITE_OK;
    }

    std::filesystem::path m_folder;
};

TEST_F(RegistryFile, KeepsWhatWasWrittenWhenItIsOpenedAgain) {
    {
        registry_file file(path());
        const auto key = file.create(registry_file::current_user, {L"Software", L"商品"});
        file.write(key, L"名", REG_BINARY, std::as_bytes(std::span("abc")));
    }
    registry_file file(path());
    const auto key = file.find(registry_file::current_user, {L"SOFTWARE", L"商品"});
    ASSERT_TRUE(key.has_value());
    const auto value = file.read(*key, L"名");
    ASSERT_TRUE(value.has_value());
    EXPECT_EQ(value->type, DWORD{REG_BINARY});
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(value->data.data()), value->data.size()),
              std::string("abc\0", 4));
    EXPECT_FALSE(file.find(registry_file::classes_root, {L"Software"}).has_value());
}

TEST_F(RegistryFile, TwoUsersOfTheFileSeeEachOther) {
    registry_file first(path());
    registry_file second(path());
    const auto key = first.create(registry_file::current_user, {L"k"});
    EXPECT_TRUE(second.exists(key));
    EXPECT_TRUE(second.delete_tree(registry_file::current_user, {L"k"}));
    EXPECT_FALSE(first.exists(key));
}

TEST_F(RegistryFile, AnIdIsNeverUsedAgain) {
    registry_file file(path());
    const auto before = file.create(registry_file::current_user, {L"k"});
    file.delete_tree(registry_file::current_user, {L"k"});
    EXPECT_GT(file.create(registry_file::current_user, {L"k"}), before);
}

TEST_F(RegistryFile, WhatIsNoDatabaseIsRefusedAndLeft) {
    std::ofstream(path()) << "these are not the bytes of a database, and somebody may want them back";
    const auto size = std::filesystem::file_size(path());
    EXPECT_EQ(failure(path()), SQLITE_NOTADB);
    EXPECT_EQ(std::filesystem::file_size(path()), size);
}

TEST_F(RegistryFile, AFolderThatIsNotThereIsRefused) {
    EXPECT_EQ(failure(m_folder / "no such folder" / "registry.db"), SQLITE_CANTOPEN);
}

}  // namespace
