#pragma once

#include <functional>

namespace klx::network {

/**
 * While it lives, has something happen in the midst of each look of this thread at the network: the
 * links are read, the routes of a family are not. A look reads links, addresses, the routes of
 * IPv4, those of IPv6, and then what sysfs says.
 */
class Meanwhile {
public:
    /** @param change gets the number of the look, from 0 */
    Meanwhile(int family, std::function<void(int look)> change);
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;
    ~Meanwhile();

    int looks() const { return m_looks; }

    /** Called before the kernel is asked for the routes of a family. */
    void beforeRoutes(int family);

private:
    int m_family;
    std::function<void(int)> m_change;
    int m_looks = 0;
};

} // namespace klx::network
