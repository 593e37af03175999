#pragma once

namespace OV_OrderDeck {

// Sets a flag while it lives and gives it back as it was.
class setting_flag {
public:
    explicit setting_flag(bool& flag) : m_flag(flag), m_before(flag) { m_flag = true; }
    ~setting_flag() { m_flag = m_before; }
    setting_flag(const setting_flag&) = delete;
    setting_flag& operator=(const setting_flag&) = delete;

private:
    bool& m_flag;
    bool m_before;
};

}  // namespace OV_OrderDeck
