#include "KLXCommonUtil.h"

#include "Exception.h"
#include "Handles.h"
#include "Log.h"

#include <boost/filesystem/operations.hpp>
#include <openssl/bio.h>
#include <openssl/evp.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <unistd.h>

const std::string DlogFilePath = "/opt/etc/disable_dlogutil";

namespace {

using Bio = std::unique_ptr<BIO, KLX::ReleasedBy<&BIO_free_all>>;

/// @return the count of bytes as OpenSSL tells it; 0 when there is no memory for the work
int readBase64(const char* text, int length, unsigned char* buffer) {
    Bio input(BIO_new_mem_buf(text, length));
    const Bio filter(BIO_new(BIO_f_base64()));
    if (!input || !filter) {
        return 0;
    }
    BIO_set_flags(filter.get(), BIO_FLAGS_BASE64_NO_NL);
    return BIO_read(BIO_push(filter.get(), input.release()), buffer, length);
}

/// Runs the work on a file and turns stream failures into the library's exception, logging in the
/// name of the operation.
template <class Work>
auto withFile(const char* operation, const std::string& path, Work work) {
    KLX_LOG_AS(operation, LogInfo, "filePath=[%s]", path.c_str());
    try {
        return work();
    } catch (const std::ios_base::failure&) {
        KLX_LOG_AS(operation, LogWarning, "Error during file open");
        throw KLX::Exception("file[%s] open failed", path);
    } catch (...) {
        KLX_LOG_AS(operation, LogWarning, "unknown exception caught");
        throw;
    }
}

template <class Stream>
void requireOpen(const Stream& file, const std::string& path) {
    if (!file.is_open()) {
        throw KLX::Exception("file[%s] open failed", path);
    }
}

bool isDebugImage() {
    return access("/etc/debug", F_OK) == 0;
}

bool markerFileExists() {
    boost::system::error_code unreadable;
    return boost::filesystem::exists(DlogFilePath, unreadable);
}

void reportFailedRun(const char* operation, const char* named, int status) {
    if (status == -1 || status == 127) {
        KLX_LOG_AS(operation, LogWarning, "%s command Failed with %d", named, status);
    }
}

/// Tells the platform's log tool, then brings the marker file in line.
void switchDlogBuffer(const char* operation, const char* toolCommand, bool markerWanted,
                      const char* markerCommand) {
    KLX_LOG_AS(operation, LogInfo, "start");
    if (isDebugImage()) {
        return;
    }
    try {
        const int status = std::system(toolCommand);
        KLX_LOG_AS(operation, LogInfo, "%s command exited with %d", operation, status);
        reportFailedRun(operation, operation, status);
        if (markerFileExists() != markerWanted) {
            const std::string command = markerCommand + DlogFilePath;
            const int changed = std::system(command.c_str());
            KLX_LOG_AS(operation, LogInfo, "cmd [%s] ret=[%d]", command.c_str(), changed);
            // The set's log analysis looks for the enabling text on both paths.
            reportFailedRun(operation, "EnableDlogBuffer", changed);
        }
    } catch (...) {
        KLX_LOG_AS(operation, LogWarning, "Unknown exception occured");
    }
}

} // namespace

std::string KLXCommonUtil::encodeBase64(const void* data, std::size_t len) {
    KLX_LOG(LogInfo, "start");
    Bio chain(BIO_new(BIO_f_base64()));
    if (!chain) {
        throw KLX::Exception("Could not allocate OpenSSL BIO");
    }
    BIO* const memory = BIO_new(BIO_s_mem());
    if (memory == nullptr) {
        throw KLX::Exception("Could not allocate memory for BIO");
    }
    BIO_push(chain.get(), memory);
    BIO_set_flags(chain.get(), BIO_FLAGS_BASE64_NO_NL);

    const auto* at = static_cast<const char*>(data);
    while (len > 0) {
        const int written =
            BIO_write(chain.get(), at, static_cast<int>(std::min<std::size_t>(len, INT_MAX)));
        if (written <= 0) {
            throw KLX::Exception("Could not allocate memory for BIO");
        }
        at += written;
        len -= static_cast<std::size_t>(written);
    }
    if (BIO_flush(chain.get()) != 1) {
        throw KLX::Exception("Could not allocate memory for BIO");
    }
    char* text = nullptr;
    const long size = BIO_get_mem_data(memory, &text);
    return {text, static_cast<std::size_t>(size)};
}

unsigned char* KLXCommonUtil::decodeBase64(const char* text, int len, unsigned int& outLen) {
    KLX_LOG(LogInfo, "length=[%d]", len);
    const int room = std::max(len, 0);
    auto* const buffer =
        static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(std::max(room, 1)), 1));
    int count = 0;
    if (buffer != nullptr && room > 0) {
        count = readBase64(text, room, buffer);
    }
    outLen = static_cast<unsigned int>(count);
    KLX_LOG(LogInfo, "outLen[%d]", count);
    return buffer;
}

std::string KLXCommonUtil::readStrFromFile(std::string path) {
    return withFile(__func__, path, [&path] {
        std::ifstream file(path);
        requireOpen(file, path);
        file.exceptions(std::ios_base::badbit);
        std::string word;
        file >> word;
        file.close();
        return word;
    });
}

void KLXCommonUtil::writeStrToFile(std::string content, std::string path) {
    withFile(__func__, path, [&content, &path] {
        std::ofstream file(path);
        requireOpen(file, path);
        file.exceptions(std::ios_base::failbit | std::ios_base::badbit);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        file.close();
    });
}

std::string KLXCommonUtil::extractLastNumbers(const std::string& text) {
    constexpr const char* digits = "0123456789";
    const std::size_t first = text.find_first_of(digits);
    const std::size_t last = text.find_last_of(digits);
    return text.substr(first, last - first + 1);
}

void KLXCommonUtil::EnableDlogBuffer() {
    switchDlogBuffer(__func__, "/usr/bin/dlogctrl -k plog -s 1", true, "touch ");
}

void KLXCommonUtil::DisableDlogBuffer() {
    switchDlogBuffer(__func__, "/usr/bin/dlogctrl -k plog -s 0", false, "rm -rf  ");
}
