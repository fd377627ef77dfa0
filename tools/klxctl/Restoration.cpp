#include "Restoration.h"

#include "Progress.h"
#include "PropertyReading.h"
#include "UndoLog.h"

#include <algorithm>
#include <map>

namespace {

/// One property that is asked for.
struct Item {
    Setting wish;
    const PropertyDescription* property = nullptr;
    Verdict verdict = Verdict::Unknown;
    std::optional<Reading> before;
    std::optional<Reading> held;
    std::optional<Reading> overwritten; // what it held just before it was written
};
using Items = std::vector<Item*>;

/// Whether its verdict comes from what the set holds.
bool isJudged(const Item& item) {
    return item.verdict != Verdict::Unknown && item.verdict != Verdict::Malformed &&
           item.verdict != Verdict::LeftAlone;
}

bool holds(const Item& item, const std::optional<Reading>& reading) {
    const std::string wanted = item.wish.value.value_or("");
    return reading && (areSame(*item.property, wanted, reading->value) || wanted == reading->shown);
}

bool isHeld(const Item& item) {
    return holds(item, item.held);
}

bool isWritten(const Item& item) {
    return item.overwritten.has_value();
}

bool canBeWritten(const Item& item) {
    return isJudged(item) && item.property->isWritable;
}

Verdict firstVerdict(const Setting& wish, const PropertyDescription* property) {
    if (wish.isMalformed) {
        return Verdict::Malformed;
    }
    if (property == nullptr) {
        return Verdict::Unknown;
    }
    return overwrites(wish, *property) ? Verdict::NotWritten : Verdict::LeftAlone;
}

Verdict judged(const Item& item, bool isForeseen) {
    if (!item.before) {
        return Verdict::NotWritten;
    }
    if (!item.held) {
        return Verdict::NotRead;
    }
    if (isHeld(item)) {
        return holds(item, item.before) && !isWritten(item) ? Verdict::Unchanged : Verdict::Applied;
    }
    if (!item.property->isWritable) {
        return Verdict::ReadOnly;
    }
    if (isForeseen) {
        return Verdict::Foreseen;
    }
    return isWritten(item) ? Verdict::Refused : Verdict::NotWritten;
}

/// @param isStuck whether the former value could not be put back
Verdict verdictAfterTakingBack(const Item& item, bool isStuck) {
    if (isStuck || (item.held && item.held->value != item.before->value)) {
        return Verdict::NotPutBack;
    }
    if (!item.held || (item.verdict == Verdict::NotRead && !isWritten(item))) {
        return judged(item, false);
    }
    const bool mayHaveChanged =
        item.verdict == Verdict::Applied || item.verdict == Verdict::NotRead;
    return mayHaveChanged ? Verdict::PutBack : item.verdict;
}

/// What the library applies first in a document comes into the first piece of one.
Items inLibraryOrder(Items items) {
    std::stable_partition(items.begin(), items.end(),
                          [](const Item* item) { return item->property->isRestoredFirst; });
    return items;
}

std::string counted(const char* act, std::size_t done, std::size_t all) {
    return std::string(act) + " " + std::to_string(done) + " of " + std::to_string(all);
}

class Restorer {
public:
    Restorer(const KnownProperties& known, DocumentFormat format, const Wishes& wishes,
             const RestoreOptions& options, const Interruption& interruption)
        : m_known(known), m_format(format), m_wishes(wishes), m_options(options),
          m_interruption(interruption) {}

    Restoration run();

private:
    bool isStopped() const { return m_hasFailed || m_interruption.signal() != 0; }
    bool isUndisturbed() const { return !m_hasFailed && m_signal == 0; }
    bool isWorthwhile() const;
    bool isComplete() const;

    template <class Chosen>
    Items where(Chosen chosen);

    void plan();
    void readBefore();
    void applyOrNote();
    void note(const std::exception& failure);
    void apply();
    void applyInPieces(const Items& items);
    void write(const Items& items);
    void wishAgain();
    void readAgain();
    void judge();
    void takeBack();
    Restoration result() const;

    const KnownProperties& m_known;
    const DocumentFormat m_format;
    const Wishes& m_wishes;
    const RestoreOptions m_options;
    const Interruption& m_interruption;
    Progress m_progress;

    std::vector<Item> m_items; // in the order in which the library applies them
    UndoLog m_log;
    int m_signal = 0; // that came before everything was applied
    bool m_hasFailed = false;
    std::string m_failure;
    bool m_isPutBack = false;
};

template <class Chosen>
Items Restorer::where(Chosen chosen) {
    Items items;
    for (Item& item : m_items) {
        if (chosen(item)) {
            items.push_back(&item);
        }
    }
    return items;
}

void Restorer::plan() {
    for (Setting& wish : m_wishes()) {
        Item item;
        item.property = m_known.find(wish.path);
        item.verdict = firstVerdict(wish, item.property);
        item.wish = std::move(wish);
        m_items.push_back(std::move(item));
    }
}

void Restorer::readBefore() {
    const Items items = where(isJudged);
    for (std::size_t index = 0; index < items.size() && !isStopped(); ++index) {
        m_progress.tell(counted("reading", index + 1, items.size()));
        Item& item = *items[index];
        item.before = readingOf(item.wish.path);
        item.held = item.before;
    }
}

/// Whether anything is to be written: not when it is clear beforehand that all cannot be held, and
/// nothing is wanted then.
bool Restorer::isWorthwhile() const {
    return !m_options.isAllOrNothing ||
           std::all_of(m_items.begin(), m_items.end(), [](const Item& item) {
               return isJudged(item) ? isHeld(item) || item.property->isWritable
                                     : item.verdict == Verdict::LeftAlone;
           });
}

bool Restorer::isComplete() const {
    return isUndisturbed() && std::all_of(m_items.begin(), m_items.end(), [](const Item& item) {
               return item.verdict == Verdict::LeftAlone || (isJudged(item) && isHeld(item));
           });
}

void Restorer::apply() {
    const auto differs = [](const Item& item) {
        return canBeWritten(item) && !isHeld(item);
    };
    // First what other settings depend on: only then it shows what those hold, and what is their
    // default.
    const Items leading = where(
        [&differs](const Item& item) { return differs(item) && item.property->isRestoredFirst; });
    if (!leading.empty()) {
        write(leading);
        wishAgain();
        readAgain();
    }
    applyInPieces(
        where([&differs](const Item& item) { return differs(item) && !isWritten(item); }));
    readAgain();
    const Items disturbed =
        where([&differs](const Item& item) { return differs(item) && !isWritten(item); });
    if (!disturbed.empty() && !isStopped()) {
        // What was held is held no more, so one setting acts on another: let the library's order
        // decide.
        applyInPieces(inLibraryOrder(where([&differs](const Item& item) {
            return differs(item) || (canBeWritten(item) && isWritten(item));
        })));
        readAgain();
    }
}

// The library cannot be stopped in the middle of a document. Consecutive pieces keep its order.
void Restorer::applyInPieces(const Items& items) {
    constexpr std::size_t most = 8;
    for (std::size_t begin = 0; begin < items.size() && !isStopped(); begin += most) {
        const std::size_t end = std::min(begin + most, items.size());
        m_progress.tell(counted("writing", end, items.size()));
        write(Items(items.begin() + static_cast<std::ptrdiff_t>(begin),
                    items.begin() + static_cast<std::ptrdiff_t>(end)));
    }
}

void Restorer::write(const Items& items) {
    std::vector<Assignment> former;
    std::vector<Assignment> wanted;
    for (Item* const item : items) {
        former.push_back({item->wish.path, item->held->value});
        wanted.push_back({item->wish.path, *item->wish.value});
        if (!isWritten(*item)) {
            item->overwritten = item->held;
        }
    }
    m_log.note(std::move(former));
    m_hasFailed |= !CDeviceInfoManager::SetDeviceInfo(documentOf(wanted, m_format), m_format);
}

void Restorer::wishAgain() {
    std::map<std::string, Setting> wishes;
    for (Setting& wish : m_wishes()) {
        wishes.emplace(wish.path, std::move(wish));
    }
    for (Item& item : m_items) {
        const auto found = wishes.find(item.wish.path);
        if (isJudged(item) && found != wishes.end() && overwrites(found->second, *item.property)) {
            item.wish = std::move(found->second);
        }
    }
}

void Restorer::readAgain() {
    for (Item* const item : where(canBeWritten)) {
        m_progress.tell("reading again");
        item->held.reset();
        try {
            item->held = readingOf(item->wish.path);
        } catch (const std::exception& failure) {
            note(failure);
        }
    }
}

void Restorer::judge() {
    const bool isForeseen = m_options.isDryRun && isWorthwhile() && isUndisturbed();
    for (Item* const item : where(isJudged)) {
        item->verdict = judged(*item, isForeseen);
    }
}

void Restorer::takeBack() {
    m_progress.tell("putting back");
    const auto stuck = m_log.undo(m_known);
    m_isPutBack = true;
    readAgain();
    for (Item* const item : where(canBeWritten)) {
        const auto found = stuck.find(item->wish.path);
        const bool isStuck = found != stuck.end();
        if (isStuck && found->second) {
            item->held = Reading{*found->second, *found->second};
        }
        item->verdict = verdictAfterTakingBack(*item, isStuck);
    }
}

Restoration Restorer::result() const {
    Restoration result;
    result.options = m_options;
    result.signal = m_signal;
    result.hasFailed = m_hasFailed;
    result.failure = m_failure;
    result.isWritten = !m_log.isEmpty();
    result.isPutBack = m_isPutBack;
    for (const Item& item : m_items) {
        PropertyOutcome outcome{item.wish.path, item.verdict, item.wish.value, {}, {}};
        outcome.isLeading = item.property != nullptr && item.property->isRestoredFirst;
        // Another setting may have changed it since it was read first.
        const bool isOverwritten = item.verdict == Verdict::Applied && isWritten(item);
        if (const auto& before = isOverwritten ? item.overwritten : item.before) {
            outcome.before = before->value;
        }
        if (item.held) {
            outcome.held = item.held->value;
        }
        result.outcomes.push_back(std::move(outcome));
    }
    std::sort(result.outcomes.begin(), result.outcomes.end(),
              [](const PropertyOutcome& left, const PropertyOutcome& right) {
                  return left.path < right.path;
              });
    return result;
}

void Restorer::note(const std::exception& failure) {
    m_hasFailed = true;
    if (m_failure.empty()) {
        m_failure = failure.what();
    }
}

// What was done to the set until a failure has to be put back, and to be reported.
void Restorer::applyOrNote() {
    try {
        apply();
    } catch (const std::exception& failure) {
        note(failure);
        readAgain();
    }
}

Restoration Restorer::run() {
    plan();
    readBefore();
    if (!m_options.isDryRun && isWorthwhile() && !isStopped()) {
        applyOrNote();
    }
    // But once, so that everything that follows is decided alike.
    m_signal = m_interruption.signal();
    judge();
    if (m_options.isAllOrNothing && !m_log.isEmpty() && !isComplete()) {
        takeBack();
    }
    return result();
}

} // namespace

bool overwrites(const Setting& wish, const PropertyDescription& property) {
    return wish.value && (!wish.value->empty() || (property.isText && property.isWritable));
}

Restoration restore(const KnownProperties& known, DocumentFormat format, const Wishes& wishes,
                    const RestoreOptions& options, const Interruption& interruption) {
    return Restorer(known, format, wishes, options, interruption).run();
}
