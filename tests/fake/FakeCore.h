#pragma once

/**
 * @file
 * What every service of the fake is made of: the locked state, and `call`, which records a call,
 * lets hooks have it, and only then works out the answer. Only tests/fake/ includes this.
 */

#include "FakeState.h"

#include <cstring>
#include <mutex>
#include <string>
#include <type_traits>

namespace klx::fake {

/** The state, locked for as long as this lives; one full expression where it is a temporary. */
class Access {
public:
    Access();
    State& operator*() const { return m_state; }
    State* operator->() const { return &m_state; }

private:
    std::unique_lock<std::mutex> m_lock;
    State& m_state;
};

/** The calling thread is inside the platform for as long as this lives; may be nested. */
class Inside {
public:
    Inside();
    ~Inside();
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
};

/** @name One argument as the history shows it */
/**@{*/
std::string show(const char* text);
std::string show(const std::string& text);
std::string show(bool flag);
std::string show(const void* handle);

template <typename T>
std::enable_if_t<std::is_integral_v<T> || std::is_enum_v<T>, std::string> show(T number) {
    return std::to_string(static_cast<long long>(number));
}
/**@}*/

/** The arguments of a call as the history shows them. */
template <typename... T>
std::string args(const T&... values) {
    const Inside platform;
    std::string text;
    ((text += (text.empty() ? "" : ", ") + show(values)), ...);
    return text;
}

/** Throws std::invalid_argument unless the fake implements a function of that name. */
void requireKnown(const std::string& function);

/** Counts a call, runs its hook, waits at its gate, throws what it should. @return its ordinal */
int pass(const std::string& function);

/** Adds a call to the history and lets it `pass`. */
int enter(const std::string& function, const std::string& arguments);

/** The status that a failing call answers, if this one fails. */
std::optional<int> plannedFailure(State& state, const std::string& function, int ordinal);

/** The status that a working call answers. */
int plannedAnswer(State& state, const std::string& function, int status);

/** One call: `body(State&)` does the work and returns the status; a failing call skips it. */
template <typename Body>
int call(const char* function, const std::string& arguments, Body body) {
    const Inside platform;
    const int ordinal = enter(function, arguments);
    const Access state;
    if (const auto failure = plannedFailure(*state, function, ordinal)) {
        return *failure;
    }
    const int status = body(*state);
    return plannedAnswer(*state, function, status);
}

/** The same for a call that gives something back: its work is done even when it fails. */
template <typename Body>
int callReleasing(const char* function, const std::string& arguments, Body body) {
    const Inside platform;
    const int ordinal = enter(function, arguments);
    const Access state;
    const int status = body(*state);
    const auto failure = plannedFailure(*state, function, ordinal);
    return failure ? *failure : plannedAnswer(*state, function, status);
}

/** The value under a key, or null. */
template <typename Map, typename Key>
const typename Map::mapped_type* lookUp(const Map& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

template <typename Mapped>
const Mapped* lookUp(const std::map<std::string, Mapped>& map, const char* key) {
    return key == nullptr ? nullptr : lookUp(map, std::string(key));
}

/** Remembers a value. @return 0, or kBadHandle for a null key */
int keep(std::map<std::string, Value>& map, const char* key, Value value);

/** A copy of a text for the caller to free. */
char* duplicate(const std::string& text);

/** Hands out a programmed text. @return 0, kNotProgrammed or kWrongType */
int giveText(const Value* value, char** out);

/** Hands out a programmed value of exactly one type. */
template <typename Stored, typename Out>
int give(const Value* value, Out* out) {
    if (value == nullptr) {
        return kNotProgrammed;
    }
    const Stored* const stored = std::get_if<Stored>(value);
    if (stored == nullptr) {
        return kWrongType;
    }
    *out = static_cast<Out>(*stored);
    return 0;
}

/** Hands out a programmed number. */
template <typename Out>
int give(const std::optional<int>& value, Out* out) {
    if (!value) {
        return kNotProgrammed;
    }
    *out = static_cast<Out>(*value);
    return 0;
}

/** Copies as much of the bytes as fits, without a terminating zero. @return the bytes copied */
int giveBytes(const std::string& bytes, char* out, std::size_t room);

} // namespace klx::fake
