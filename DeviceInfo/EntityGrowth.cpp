#include "EntityGrowth.h"

#include <libxml/entities.h>

namespace {

class Growth {
public:
    explicit Growth(xmlDocPtr document) : m_document(document) {}

    bool isWithinMeasure() const { return m_left > 0; }

    /// The parser lets elements stand some hundred deep only.
    void addElements(const xmlNode* first) {
        for (const xmlNode* node = first; node != nullptr && isWithinMeasure(); node = node->next) {
            if (node->type == XML_ELEMENT_NODE) {
                for (const xmlAttr* attribute = node->properties; attribute != nullptr;
                     attribute = attribute->next) {
                    addReferences(attribute->children, 0);
                }
                addElements(node->children);
            }
        }
    }

private:
    void addReferences(const xmlNode* first, int depth) {
        for (const xmlNode* node = first; node != nullptr && isWithinMeasure(); node = node->next) {
            if (node->type == XML_ENTITY_REF_NODE) {
                addEntity(xmlGetDocEntity(m_document, node->name), depth + 1);
            } else if (depth > 0) {
                m_left -= xmlStrlen(node->content);
            }
        }
    }

    // An entity costs something even when it is empty, so that many of them come to an end, too.
    void addEntity(const xmlEntity* entity, int depth) {
        constexpr int deepest = 40;
        m_left = depth > deepest ? 0 : m_left - 1;
        if (entity != nullptr) {
            addReferences(entity->children, depth);
        }
    }

    xmlDocPtr m_document;
    long m_left = 10'000'000;
};

} // namespace

bool entitiesStayWithinMeasure(xmlDocPtr document) {
    if (document->intSubset == nullptr) {
        return true;
    }
    Growth growth(document);
    growth.addElements(document->children);
    return growth.isWithinMeasure();
}
