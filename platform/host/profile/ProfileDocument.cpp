#include "ProfileDocument.h"

#include "../HostErrors.h"

#include <json/reader.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <utility>
#include <vector>

namespace KLX::Host {
namespace {

[[noreturn]] void fail(const std::string& file, const std::string& text) {
    throw HostFailure(HostError::ProfileInvalid, file + ": " + text);
}

bool isFileName(const std::string& name) {
    const std::string ending = ".json";
    return name.find('/') != std::string::npos ||
           (name.size() > ending.size() &&
            name.compare(name.size() - ending.size(), ending.size(), ending) == 0);
}

std::string folderOf(const std::string& file) {
    const std::size_t slash = file.find_last_of('/');
    return slash == std::string::npos ? "" : file.substr(0, slash + 1);
}

// A profile names what it extends as seen from its own folder.
std::string locate(const std::string& name, const std::string& folder,
                   const std::string& shippedFolder) {
    if (!isFileName(name)) {
        return shippedFolder + '/' + name + ".json";
    }
    return name.front() == '/' ? name : folder + name;
}

Json::CharReaderBuilder strictReader() {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["collectComments"] = false;
    return builder;
}

std::string withoutLastNewline(std::string text) {
    text.erase(text.find_last_not_of('\n') + 1);
    return text;
}

Json::Value parseFile(const std::string& file) {
    std::ifstream stream(file);
    if (!stream) {
        fail(file, std::string("cannot be opened (") + std::strerror(errno) +
                       "); KLX_PROFILE must name a file or a shipped profile");
    }
    Json::Value root;
    std::string errors;
    try {
        if (!Json::parseFromStream(strictReader(), stream, &root, &errors)) {
            fail(file, "is not JSON: " + withoutLastNewline(errors));
        }
    } catch (const Json::Exception& exception) {
        fail(file, std::string("is not JSON: ") + exception.what());
    }
    if (!root.isObject()) {
        fail(file, "$: expected an object");
    }
    return root;
}

/** Takes "extends" out of a profile; "" when there is none. */
std::string takeExtends(const std::string& file, Json::Value& root) {
    Json::Value name;
    if (!root.removeMember("extends", &name)) {
        return "";
    }
    if (!name.isString() || name.asString().empty()) {
        fail(file, "extends: expected the name of a profile");
    }
    return name.asString();
}

// A part that was written as a whole answers for everything inside it.
bool isInside(const std::string& path, const std::string& place) {
    return path.compare(0, place.size(), place) == 0 &&
           (path.size() == place.size() || path[place.size()] == '.' || path[place.size()] == '[');
}

class Merge {
public:
    Merge(std::string file, std::map<std::string, std::string>& origins)
        : m_file(std::move(file)), m_origins(origins) {}

    /** Puts `upper` over `lower`: objects member by member, null removes, all else replaces. */
    void apply(Json::Value& lower, const Json::Value& upper, const std::string& path) {
        if (!lower.isObject() || !upper.isObject()) {
            lower = upper;
            note(path);
            return;
        }
        for (const std::string& name : upper.getMemberNames()) {
            const std::string place = memberPath(path, name);
            if (upper[name].isNull()) {
                lower.removeMember(name);
            } else if (lower.isMember(name)) {
                apply(lower[name], upper[name], place);
            } else {
                lower[name] = upper[name];
                note(place);
            }
        }
    }

private:
    void note(const std::string& path) { m_origins[path] = m_file; }

    std::string m_file;
    std::map<std::string, std::string>& m_origins;
};

} // namespace

const std::string& ProfileDocument::fileOf(const std::string& path) const {
    const std::string* found = &file;
    std::size_t longest = 0;
    for (const auto& [place, origin] : origins) {
        if (place.size() >= longest && isInside(path, place)) {
            found = &origin;
            longest = place.size();
        }
    }
    return *found;
}

std::string memberPath(const std::string& parent, const std::string& name) {
    const bool isPlain = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
    });
    if (!isPlain) {
        return parent + "[\"" + name + "\"]";
    }
    return parent.empty() ? name : parent + '.' + name;
}

ProfileDocument readProfileDocument(const std::string& name, const std::string& shippedFolder) {
    std::vector<std::string> files{locate(name, "", shippedFolder)};
    std::vector<Json::Value> layers{parseFile(files.back())};
    for (std::string below = takeExtends(files.back(), layers.back()); !below.empty();
         below = takeExtends(files.back(), layers.back())) {
        const std::string file = locate(below, folderOf(files.back()), shippedFolder);
        if (std::find(files.begin(), files.end(), file) != files.end()) {
            fail(files.back(), "extends: expected a profile that does not lead back to this one");
        }
        files.push_back(file);
        layers.push_back(parseFile(file));
    }
    ProfileDocument document{Json::Value(Json::objectValue), files.front(), {}};
    for (std::size_t i = layers.size(); i > 0; --i) {
        Merge(files[i - 1], document.origins).apply(document.root, layers[i - 1], "");
    }
    return document;
}

} // namespace KLX::Host
