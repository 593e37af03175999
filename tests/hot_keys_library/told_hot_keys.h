// What the tests tell their hot key library, and what it tells them. Library and tests are built together,
// so plain classes cross the border; each side frees only what it made.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The library's further export: extern "C" told_hot_keys* HK_Told().
class told_hot_keys {
public:
    // Forgets keys, refusals and calls.
    virtual void clear() noexcept = 0;
    virtual void bind(std::uint32_t kind, const wchar_t* text, std::uint32_t key) noexcept = 0;
    // From now on no handler can be made, or a handler has no commands.
    virtual void refuse_handlers() noexcept = 0;
    virtual void refuse_commands() noexcept = 0;
    // "construct", "commands", "get_key <kind> <text>", "destruct", in their order.
    virtual const std::vector<std::wstring>& calls() const noexcept = 0;

protected:
    ~told_hot_keys() = default;
};

using HK_ToldFunction = told_hot_keys* (*)();
