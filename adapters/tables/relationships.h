// How the parts of a workbook are found: each names the others by relationships, and where those
// lead is nobody's convention.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/tables/zip_archive.h"

namespace kelvane::tables {

struct Relationship {
    std::string id;
    std::string type;
    std::string target;  // a part's name
    bool external = false;
};

// What the part `name` refers to, the workbook's file itself by an empty name. Throws Refusal.
std::vector<Relationship> ReadRelationships(ZipArchive& archive, std::string_view name);

// The first whose type ends with "/" and `kind`; null when there is none.
const Relationship* FindRelationship(const std::vector<Relationship>& all, std::string_view kind);

}  // namespace kelvane::tables
