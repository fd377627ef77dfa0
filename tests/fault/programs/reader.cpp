/**
 * Opens read transactions on a store and keeps them until it is killed. Says "ready" on standard
 * output when it has them.
 *
 * Usage: klx_fault_reader FILE COUNT     COUNT 0 takes every slot that is left
 */
#include <lmdb.h>
#include <unistd.h>

#include <cstdlib>

int main(int argc, char** argv) {
    MDB_env* environment = nullptr;
    if (argc != 3 || mdb_env_create(&environment) != MDB_SUCCESS ||
        mdb_env_open(environment, argv[1], MDB_NOSUBDIR | MDB_NOTLS | MDB_RDONLY, 0600) !=
            MDB_SUCCESS) {
        return 2;
    }
    const int wanted = std::atoi(argv[2]);
    int code = MDB_SUCCESS;
    for (int count = 0; code == MDB_SUCCESS && (wanted == 0 || count < wanted); ++count) {
        MDB_txn* transaction = nullptr;
        code = mdb_txn_begin(environment, nullptr, MDB_RDONLY, &transaction);
    }
    if (code != (wanted == 0 ? MDB_READERS_FULL : MDB_SUCCESS)) {
        return 1;
    }
    if (::write(STDOUT_FILENO, "ready", 5) != 5) {
        return 1;
    }
    for (;;) {
        ::pause();
    }
}
