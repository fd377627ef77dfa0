// Prints the reference of all properties, a page in Markdown, from what the library tells of them.

#include "DeviceInfoManager.h"

#include <cstdio>
#include <iostream>

namespace {

const char* const introduction = R"(# Properties

Every property that the library answers to, by category. `./dev reference` writes this page from
the library's catalogue, and a test holds the two together.

- **kind** tells what answers for the property, **key** what is asked there: a key of the settings
  store, the number of an information or setting, the name of a platform call, or files that are
  looked for. `memory/sysman/` is followed by the port's name in lower case, such as `hdmi1`.
- **default** is what a document gives beside the value. *of the set*: the platform is asked for
  it, each time. *empty*: it is an empty text on every set. *none*: there is no default, which a
  document shows as an empty text.
- A property that cannot be **written** takes every value and does nothing with it.

Blanks are part of a name; "Power On with  Mobile" has two in a row. What is unlike the rest, and
why, is told in [Surprises](surprises.md).
)";

std::string categoryOf(const std::string& path) {
    return path.substr(1, path.find('/', 1) - 1);
}

std::string code(const std::string& text) {
    return text.empty() ? "" : "`" + text + "`";
}

std::string defaultOf(const PropertyDescription& property) {
    if (property.fixedDefault) {
        return property.fixedDefault->empty() ? "*empty*" : code(*property.fixedDefault);
    }
    return property.hasDefault ? "*of the set*" : "*none*";
}

std::string row(const PropertyDescription& property) {
    return "| " + code(property.path) + " | " + property.kind + " | " + code(property.key) + " | " +
           defaultOf(property) + " | " + (property.isWritable ? "yes" : "no") + " |\n";
}

std::string table(const std::string& category, const std::vector<PropertyDescription>& properties) {
    std::string lines = "\n## " + category +
                        "\n\n| path | kind | key | default | written |\n|---|---|---|---|---|\n";
    for (const PropertyDescription& property : properties) {
        if (categoryOf(property.path) == category) {
            lines += row(property);
        }
    }
    return lines;
}

std::string page(const std::vector<PropertyDescription>& properties) {
    std::string text = introduction;
    std::string category;
    // Those of one category stand together.
    for (const PropertyDescription& property : properties) {
        if (categoryOf(property.path) != category) {
            category = categoryOf(property.path);
            text += table(category, properties);
        }
    }
    return text;
}

} // namespace

int main() {
    std::vector<PropertyDescription> properties;
    if (!CDeviceInfoManager::DescribeProperties(properties)) {
        std::fputs("klx_reference: the library does not tell its properties\n", stderr);
        return 1;
    }
    std::cout << page(properties);
    return std::cout.flush() ? 0 : 1;
}
