#include "HostTest.h"
#include "Worker.h"

#include <cstdlib>
#include <memory>

using namespace klx::test;

namespace KLX::Host {
namespace {

constexpr int processes = 4;
constexpr int threads = 16;

/** Every process has workers of all shares. */
int clientsOf(int process) {
    std::vector<Worker> workers;
    for (int thread = 0; thread < threads; ++thread) {
        workers.emplace_back(thread * processes + process, processes * threads);
    }
    workTogether(workers);
    return success;
}

class HostLoad : public HostTest {
protected:
    HostLoad() { ::setenv("KLX_LOG", "off", 1); }
};

TEST_F(HostLoad, FourProcessesWithSixteenClientsEachLoseNothing) {
    std::vector<std::unique_ptr<ChildProcess>> children;
    for (int process = 0; process < processes; ++process) {
        children.push_back(
            std::make_unique<ChildProcess>([process] { return clientsOf(process); }));
    }
    for (const auto& child : children) {
        EXPECT_EQ(child->wait(), success);
    }
    Worker::expectFinalValues(processes * threads);
}

} // namespace
} // namespace KLX::Host
