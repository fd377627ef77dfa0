#pragma once

#include <libxml/tree.h>

/// Tells whether reading the attributes of a parsed document stays within measure.
///
/// libxml2 puts the entities of an attribute in when the attribute is read, and its own limits end
/// with the parser: a small document can grow to any size then. Ten million bytes, libxml2's limit
/// for a text, are allowed for all entities of a document together.
///
/// @return false when they would grow beyond that
bool entitiesStayWithinMeasure(xmlDocPtr document);
