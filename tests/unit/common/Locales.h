#pragma once

#include <locale>
#include <string>

namespace klx::test {

/** For as long as it lives, the process's C++ locale writes 1234567 as 1,234,567. */
class GroupingLocale {
public:
    GroupingLocale() : m_before(std::locale::global(std::locale(std::locale(), new Thousands))) {}
    ~GroupingLocale() { std::locale::global(m_before); }
    GroupingLocale(const GroupingLocale&) = delete;
    GroupingLocale& operator=(const GroupingLocale&) = delete;

private:
    class Thousands : public std::numpunct<char> {
        char do_thousands_sep() const override { return ','; }
        std::string do_grouping() const override { return "\3"; }
    };

    std::locale m_before;
};

} // namespace klx::test
