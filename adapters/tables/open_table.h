// Tables from outside, whatever they are: workbooks and texts are told apart by what is in them,
// not by their names.
#pragma once

#include <memory>
#include <string>

#include "adapters/tables/text_decoder.h"
#include "platform/table.h"

namespace kelvane::tables {

// The file `path` (UTF-8), which is what places call a text by. `encoding` is a text's. Throws
// platform::TableRefused.
std::unique_ptr<platform::TableReader> OpenTable(const std::string& path,
                                                 TextEncoding encoding = TextEncoding::Detect);

// The same of a file's content, called `name`.
std::unique_ptr<platform::TableReader> OpenTableBytes(std::string bytes, const std::string& name,
                                                      TextEncoding encoding = TextEncoding::Detect);

// The same of a text (UTF-8) that was copied.
std::unique_ptr<platform::TableReader> OpenCopiedTable(std::string text);

}  // namespace kelvane::tables
