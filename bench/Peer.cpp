#include "Peer.h"

#include <json-glib/json-glib.h>

#include <cctype>
#include <map>
#include <stdexcept>

namespace peer {

namespace {

struct FreedByGLib {
    void operator()(gpointer memory) const noexcept { g_free(memory); }
};
struct VariantUnreferenced {
    void operator()(GVariant* value) const noexcept { g_variant_unref(value); }
};
struct NodeFreed {
    void operator()(JsonNode* node) const noexcept { json_node_unref(node); }
};
struct ListFreed {
    void operator()(GList* list) const noexcept { g_list_free(list); }
};
struct SourceUnreferenced {
    void operator()(GSettingsSchemaSource* source) const noexcept {
        g_settings_schema_source_unref(source);
    }
};
struct SchemaUnreferenced {
    void operator()(GSettingsSchema* schema) const noexcept { g_settings_schema_unref(schema); }
};

using Settings = std::unique_ptr<GSettings, Unreferenced>;
using Variant = std::unique_ptr<GVariant, VariantUnreferenced>;
using Node = std::unique_ptr<JsonNode, NodeFreed>;
using Names = std::unique_ptr<GList, ListFreed>;

/// The setting's key in the schema: its path in small letters, each run of other characters as one
/// hyphen.
std::string nameOf(const Setting& setting) {
    std::string name;
    for (const char given : std::string(setting.category) + "/" + setting.path) {
        const auto character = static_cast<unsigned char>(given);
        if (std::isalnum(character) != 0) {
            name += static_cast<char>(std::tolower(character));
        } else if (name.back() != '-') {
            name += '-';
        }
    }
    return name;
}

/// Names are worked out once, as a program that uses them would have them as literals.
const std::map<const Setting*, std::string>& names() {
    static const auto all = [] {
        std::map<const Setting*, std::string> names;
        for (const Setting& setting : settings()) {
            names[&setting] = nameOf(setting);
        }
        return names;
    }();
    return all;
}

const Setting& settingAt(const std::string& category, const std::string& path) {
    static const auto all = [] {
        std::map<std::pair<std::string, std::string>, const Setting*> byPath;
        for (const Setting& setting : settings()) {
            byPath[{setting.category, setting.path}] = &setting;
        }
        return byPath;
    }();
    return *all.at({category, path});
}

Settings openSettings() {
    const std::unique_ptr<GSettingsSchemaSource, SourceUnreferenced> source(
        g_settings_schema_source_new_from_directory(KLX_BENCH_SCHEMAS, nullptr, TRUE, nullptr));
    if (!source) {
        throw std::runtime_error("the compiled schema of the benchmarks is missing");
    }
    const std::unique_ptr<GSettingsSchema, SchemaUnreferenced> schema(
        g_settings_schema_source_lookup(source.get(), "klx.bench", FALSE));
    const Backend backend = newBackend();
    return Settings(g_settings_new_full(schema.get(), backend.get(), nullptr));
}

GSettings* opened() {
    static const Settings settings = openSettings();
    return settings.get();
}

/// What is set here is written when it is applied, all at once.
GSettings* collecting() {
    static const Settings settings = [] {
        Settings opened = openSettings();
        g_settings_delay(opened.get());
        return opened;
    }();
    return settings.get();
}

std::string textOf(const Variant& value) {
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_INT32)) {
        return std::to_string(g_variant_get_int32(value.get()));
    }
    if (g_variant_is_of_type(value.get(), G_VARIANT_TYPE_BOOLEAN)) {
        return g_variant_get_boolean(value.get()) ? "1" : "0";
    }
    return g_variant_get_string(value.get(), nullptr);
}

GVariant* variantOf(valueType type, const std::string& text) {
    switch (type) {
    case integerValue:
        return g_variant_new_int32(std::stoi(text));
    case booleanValue:
        return g_variant_new_boolean(std::stoi(text) != 0);
    default:
        return g_variant_new_string(text.c_str());
    }
}

void setIn(GSettings* target, const Setting& setting, const std::string& value) {
    if (!g_settings_set_value(target, names().at(&setting).c_str(),
                              variantOf(setting.type, value))) {
        throw std::runtime_error("the peer cannot be written");
    }
}

JsonObject* memberObject(JsonObject* object, const char* name) {
    if (!json_object_has_member(object, name)) {
        json_object_set_object_member(object, name, json_object_new());
    }
    return json_object_get_object_member(object, name);
}

Node documentNode() {
    JsonObject* const root = json_object_new();
    Node node(json_node_new(JSON_NODE_OBJECT));
    json_node_take_object(node.get(), root);
    for (const auto& [setting, name] : names()) {
        const Variant standard(g_settings_get_default_value(opened(), name.c_str()));
        const Variant current(g_settings_get_value(opened(), name.c_str()));
        JsonObject* const entry = json_object_new();
        json_object_set_string_member(entry, "Default", textOf(standard).c_str());
        json_object_set_string_member(entry, "Value", textOf(current).c_str());
        json_object_set_object_member(memberObject(root, setting->category), setting->path, entry);
    }
    return node;
}

void restoreCategory(JsonObject* object, const char* category) {
    const Names paths(json_object_get_members(object));
    for (const GList* path = paths.get(); path != nullptr; path = path->next) {
        const char* const name = static_cast<const char*>(path->data);
        JsonObject* const entry = json_object_get_object_member(object, name);
        setIn(collecting(), settingAt(category, name),
              json_object_get_string_member(entry, "Value"));
    }
}

} // namespace

std::string get(const Setting& setting) {
    return textOf(Variant(g_settings_get_value(opened(), names().at(&setting).c_str())));
}

void set(const Setting& setting, const std::string& value) {
    setIn(opened(), setting, value);
}

std::string jsonDocument() {
    const Node root = documentNode();
    const std::unique_ptr<JsonGenerator, Unreferenced> generator(json_generator_new());
    json_generator_set_pretty(generator.get(), TRUE);
    json_generator_set_root(generator.get(), root.get());
    const std::unique_ptr<gchar, FreedByGLib> text(
        json_generator_to_data(generator.get(), nullptr));
    return text.get();
}

void restoreJson(const std::string& document) {
    const std::unique_ptr<JsonParser, Unreferenced> parser(json_parser_new());
    if (!json_parser_load_from_data(parser.get(), document.data(),
                                    static_cast<gssize>(document.size()), nullptr)) {
        throw std::runtime_error("the peer cannot read the document");
    }
    JsonObject* const root = json_node_get_object(json_parser_get_root(parser.get()));
    const Names categories(json_object_get_members(root));
    for (const GList* category = categories.get(); category != nullptr; category = category->next) {
        const char* const name = static_cast<const char*>(category->data);
        restoreCategory(json_object_get_object_member(root, name), name);
    }
    g_settings_apply(collecting());
}

} // namespace peer
