#include "JsonText.h"

#include <json/value.h>
#include <json/writer.h>

namespace {

std::string written(const Json::Value& root, const char* indentation) {
    Json::StreamWriterBuilder writer;
    writer["indentation"] = indentation;
    writer["emitUTF8"] = false;
    return Json::writeString(writer, root) + "\n";
}

} // namespace

std::string jsonText(const Json::Value& root) {
    return written(root, "  ");
}

std::string jsonLine(const Json::Value& root) {
    return written(root, "");
}
