#include "NearestNames.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace {

constexpr std::size_t most = 5;

/// How a name resembles the written one, the closest way first.
enum class Resemblance { Spelling, Beginning, Part, LastSegment, None };

struct Candidate {
    Resemblance resemblance;
    std::size_t distance;
    std::string name;
};

bool operator<(const Candidate& left, const Candidate& right) {
    return std::tie(left.resemblance, left.distance, left.name) <
           std::tie(right.resemblance, right.distance, right.name);
}

// Not tolower(): the answer does not depend on the locale.
std::string lowered(std::string text) {
    for (char& character : text) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return text;
}

std::string withoutOuterBlanks(const std::string& text) {
    const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
    return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

/// Levenshtein's distance, kept row by row.
std::size_t editDistance(const std::string& left, const std::string& right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t replaced = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

bool contains(const std::string& text, const std::string& part) {
    // Shorter parts are in almost every name.
    return part.size() >= 3 && text.find(part) != std::string::npos;
}

std::string lastSegment(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

bool isAlmost(const std::string& written, std::size_t distance) {
    const std::size_t inShort = written.size() < 5 ? 1 : 2;
    return distance <= std::max(inShort, written.size() / 5);
}

bool resemblesLastSegment(const std::string& written, const std::string& name) {
    const std::string segment = lastSegment(written);
    return contains(name, segment) ||
           editDistance(segment, lastSegment(name)) <= segment.size() / 4;
}

Resemblance resemblanceOf(const std::string& written, const std::string& name,
                          std::size_t distance) {
    if (isAlmost(written, distance)) {
        return Resemblance::Spelling;
    }
    if (name.compare(0, written.size(), written) == 0) {
        return Resemblance::Beginning;
    }
    if (contains(name, written)) {
        return Resemblance::Part;
    }
    return resemblesLastSegment(written, name) ? Resemblance::LastSegment : Resemblance::None;
}

} // namespace

std::vector<std::string> nearestNames(const std::string& written,
                                      const std::vector<std::string>& names) {
    const std::string loweredWritten = lowered(withoutOuterBlanks(written));
    std::vector<Candidate> candidates;
    for (const std::string& name : loweredWritten.empty() ? std::vector<std::string>() : names) {
        const std::string loweredName = lowered(name);
        const std::size_t distance = editDistance(loweredWritten, loweredName);
        candidates.push_back(
            {resemblanceOf(loweredWritten, loweredName, distance), distance, name});
    }
    std::sort(candidates.begin(), candidates.end());
    // A name that only its case or blanks around it tell apart is the one that was meant.
    const bool isMeant = !candidates.empty() && candidates.front().distance == 0;
    std::vector<std::string> nearest;
    for (const Candidate& candidate : candidates) {
        const bool isNear = candidate.resemblance != Resemblance::None;
        if (isNear && nearest.size() < most && (!isMeant || candidate.distance == 0)) {
            nearest.push_back(candidate.name);
        }
    }
    return nearest;
}
