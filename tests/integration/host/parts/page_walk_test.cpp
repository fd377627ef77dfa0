#include "HostTest.h"

#include "store/MetaPages.h"
#include "store/PageWalk.h"
#include "store/Record.h"
#include "store/StoreFile.h"

#include <random>
#include <string>

namespace KLX::Host {
namespace {

bool isRecord(std::string_view key, std::string_view bytes) {
    return decodeRecord(key, bytes).has_value();
}

/** A store that takes one random transaction after the other. */
class Scribbler {
public:
    Scribbler(const std::string& file, unsigned seed)
        : m_store(openStore({file, false, std::size_t{64} << 20U})), m_random(seed) {}

    ~Scribbler() { unpin(); }
    Scribbler(const Scribbler&) = delete;
    Scribbler& operator=(const Scribbler&) = delete;

    void commitSomething() {
        MDB_txn* transaction = begin(0);
        for (unsigned change = random(0, 1) == 0 ? 60 : 3; change > 0; --change) {
            changeSomething(transaction);
        }
        ASSERT_EQ(mdb_txn_commit(transaction), MDB_SUCCESS);
    }

    void clear() {
        MDB_txn* transaction = begin(0);
        ASSERT_EQ(mdb_drop(transaction, m_store.database, 0), MDB_SUCCESS);
        ASSERT_EQ(mdb_txn_commit(transaction), MDB_SUCCESS);
    }

    /** Keeps the present snapshot's pages from being reused, or lets them go. */
    void togglePin() {
        if (m_pin == nullptr) {
            m_pin = begin(MDB_RDONLY);
        } else {
            unpin();
        }
    }

    std::string problem() {
        MDB_txn* const transaction = begin(MDB_RDONLY);
        int descriptor = -1;
        mdb_env_get_fd(m_store.environment.get(), &descriptor);
        const auto meta = metaOf(descriptor, mdb_txn_id(transaction));
        const std::string found =
            meta ? PageWalk(descriptor, *meta, isRecord).findProblem().value_or("")
                 : "the meta page is gone";
        mdb_txn_abort(transaction);
        return found;
    }

    unsigned random(unsigned least, unsigned most) {
        return std::uniform_int_distribution<unsigned>(least, most)(m_random);
    }

private:
    MDB_txn* begin(unsigned flags) {
        MDB_txn* transaction = nullptr;
        EXPECT_EQ(mdb_txn_begin(m_store.environment.get(), nullptr, flags, &transaction),
                  MDB_SUCCESS);
        return transaction;
    }

    void changeSomething(MDB_txn* transaction) {
        std::string key = "db/" + std::string(random(0, 3) == 0 ? random(0, 200) : 0, 'k') +
                          std::to_string(random(0, 400));
        MDB_val name{key.size(), key.data()};
        if (random(0, 2) == 0) {
            mdb_del(transaction, m_store.database, &name, nullptr);
            return;
        }
        const unsigned longest = random(0, 20) == 0 ? 100000 : 900;
        std::string bytes = encodeRecord(key, std::string(random(0, longest), 'x'));
        MDB_val value{bytes.size(), bytes.data()};
        EXPECT_EQ(mdb_put(transaction, m_store.database, &name, &value, 0), MDB_SUCCESS);
    }

    void unpin() {
        if (m_pin != nullptr) {
            mdb_txn_abort(m_pin);
            m_pin = nullptr;
        }
    }

    OpenedStore m_store;
    std::mt19937 m_random;
    MDB_txn* m_pin = nullptr;
};

class PageWalkTest : public HostTest {};

TEST_F(PageWalkTest, FindsNoFaultWithWhatLmdbWrites) {
    for (unsigned seed = 0; seed < 2; ++seed) {
        Scribbler scribbler(m_folder.path("store" + std::to_string(seed)), seed);
        for (int i = 0; i < 250; ++i) {
            scribbler.commitSomething();
            if (i % 30 == 0) {
                scribbler.togglePin();
            }
            if (i == 150) {
                scribbler.clear();
            }
            ASSERT_EQ(scribbler.problem(), "") << "seed " << seed << ", commit " << i;
        }
    }
}

TEST_F(PageWalkTest, FindsAFreshStoreWhole) {
    Scribbler scribbler(m_folder.path("store"), 1);
    EXPECT_EQ(scribbler.problem(), "");
}

} // namespace
} // namespace KLX::Host
