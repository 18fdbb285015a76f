// What a program noted in a workbook for itself: properties of its own, by name.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "adapters/tables/relationships.h"
#include "adapters/tables/zip_archive.h"

namespace kelvane::tables {

// The part that has them, found by `roots`, what the file itself refers to; empty when there is
// none. Throws Refusal when it would lie outside the file.
std::string PartOfProperties(const std::vector<Relationship>& roots);

// Reads the part. Values are texts, whatever kind of value they are. Throws Refusal.
std::map<std::string, std::string> ReadProperties(ZipArchive& archive, const std::string& part);

}  // namespace kelvane::tables
