#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <stdlib.h>
#include <string>

namespace klx::test {

/** A new folder that is removed at the end with all that is in it. */
class TempFolder {
public:
    TempFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "klx-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::runtime_error("cannot create a folder named like " + name);
        }
        m_path = name;
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return m_path; }

    std::string pathOf(const std::string& name) const { return m_path + "/" + name; }

    /** Creates a file. @return its path */
    std::string fileHolding(const std::string& content) const {
        const std::string path = pathOf("given");
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

private:
    std::string m_path;
};

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace klx::test
