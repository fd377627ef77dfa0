#include "NetworkTest.h"

#include <vector>

int main(int argumentCount, char** arguments) {
    // googletest takes its own arguments out of the list.
    std::vector<char*> all(arguments, arguments + argumentCount + 1);
    klx::network::NetworkTest::rememberArguments(all.data());
    testing::InitGoogleTest(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
