#pragma once

#include "PageFormat.h"

#include <optional>
#include <string>

namespace KLX::Host {

/** Largest map that a store may grow to; a file that claims more is damaged. */
constexpr std::size_t largestMap = (sizeof(std::size_t) > 4 ? 16U : 1U) * (1UL << 30U);

/** Reads `size` bytes of a file at an offset; fewer when the file ends before. */
std::string readBytes(int descriptor, std::size_t offset, std::size_t size);

/**
 * Checks both meta pages of a data file before LMDB opens it. Throws StoreFault when the file is
 * damaged, was written by a build of the other word size or byte order, or is no store at all.
 */
void checkMetaPages(int descriptor, const std::string& path);

/** The meta page of one transaction, or nothing when a later one has replaced it. */
std::optional<PageFormat::Meta> metaOf(int descriptor, std::size_t transaction);

} // namespace KLX::Host
