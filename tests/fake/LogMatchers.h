#pragma once

/**
 * @file
 * GoogleMock matchers for the fake platform's log. Texts may be matchers, too:
 *
 * @code
 * EXPECT_THAT(fake::logs(), Contains(Line(5, "getDUID", "Failed getting DUID")));
 * EXPECT_THAT(fake::logs(), Not(Contains(Line(6, _, HasSubstr("failed")))));
 * @endcode
 */

#include "FakePlatform.h"

#include <gmock/gmock.h>

namespace klx::fake {

using TextMatcher = ::testing::Matcher<const std::string&>;
using LineMatcher = ::testing::Matcher<const LogLine&>;

/** A well-formed line of the library (main log, tag "KLX") from any file. */
inline LineMatcher Line(::testing::Matcher<int> priority, TextMatcher function,
                        TextMatcher message) {
    using ::testing::Field;
    return ::testing::AllOf(Field("conforming", &LogLine::conforming, true),
                            Field("logId", &LogLine::logId, 0),
                            Field("tag", &LogLine::tag, std::string("KLX")),
                            Field("priority", &LogLine::priority, priority),
                            Field("function", &LogLine::function, function),
                            Field("message", &LogLine::message, message));
}

/** The same from one source file, which is named by its base name. */
inline LineMatcher LineIn(TextMatcher file, ::testing::Matcher<int> priority, TextMatcher function,
                          TextMatcher message) {
    return ::testing::AllOf(::testing::Field("file", &LogLine::file, file),
                            Line(priority, function, message));
}

} // namespace klx::fake
