#pragma once

#include <string>
#include <utility>

#include "tests/support/host_record.h"

namespace test {

// A fake of the host that notes its words when it goes.
template <class Base>
class last_words : public Base {
public:
    last_words(fake_host host, std::string words) : Base(host), m_host(host), m_words(std::move(words)) {}

protected:
    ~last_words() override { m_host.note(m_words); }

private:
    fake_host m_host;
    std::string m_words;
};

}  // namespace test
