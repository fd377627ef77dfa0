#include "Confined.h"
#include "NetworkTest.h"

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>

#include <cerrno>

namespace klx::network {
namespace {

int createError() {
    connection_h const untouched = &errno;
    connection_h connection = untouched;
    const int error = connection_create(&connection);
    EXPECT_EQ(connection, untouched) << "it was not to be had";
    return error;
}

using NetlinkRights = NetworkTest;

TEST_F(NetlinkRights, MissingForTheSocketMakeNoConnection) {
    for (const int error : {EPERM, EACCES, EAFNOSUPPORT}) {
        withoutSystemCall(SYS_socket, AF_NETLINK, error, [&] {
            EXPECT_EQ(createError(), static_cast<int>(NetworkError::NetlinkDenied)) << error;
        });
    }
}

TEST_F(NetlinkRights, MissingForAQuestionFailThatQuestion) {
    addWayOut("eth0");
    const Connection connection;
    withoutSystemCall(SYS_sendmsg, -1, EPERM, [&] {
        EXPECT_EQ(connection.type(), failed(NetworkError::NetlinkDenied));
        EXPECT_EQ(connection.ethernetState(), failed(NetworkError::NetlinkDenied));
        EXPECT_EQ(connection.mac(ethernet), failed(NetworkError::NetlinkDenied));
        EXPECT_EQ(connection.currentError(), static_cast<int>(NetworkError::NetlinkDenied));
    });
    EXPECT_EQ(connection.type(), said(ethernet)) << "the handle is as good as before";
}

TEST_F(NetlinkRights, MissingForWatchingWhatChangesCostNoAnswer) {
    addWayOut("eth0");
    const Connection connection;
    withoutSystemCall(SYS_socket, AF_NETLINK, EPERM,
                      [&] { EXPECT_EQ(connection.type(), said(ethernet)); });
}

TEST_F(NetlinkRights, AreNotWhatARunOutOfDescriptorsIsCalled) {
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit none = before;
    none.rlim_cur = 0;
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    const int error = createError();
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
    EXPECT_EQ(error, static_cast<int>(NetworkError::NetlinkFailed));
    EXPECT_EQ(Connection().type(), said(0)) << "it works again";
}

} // namespace
} // namespace klx::network
