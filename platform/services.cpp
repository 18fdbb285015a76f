#include "platform/services.h"

#include <string>

#include "platform/call_errors.h"

namespace kelvane::platform {

namespace {

struct Required {
    const char* name;
    bool (*isThere)(const Services&);
};

constexpr Required kRequired[] = {
    {"windows", [](const Services& given) { return given.windows != nullptr; }},
    {"registry", [](const Services& given) { return given.registry != nullptr; }},
    {"createConnection", [](const Services& given) { return bool(given.createConnection); }},
    {"today", [](const Services& given) { return bool(given.today); }},
    {"createXmlDocument",
     [](const Services& given) {
         return given.createXmlDocument || !given.createPrintControl || !given.createPrintStyle;
     }},
};

}  // namespace

void RequireServices(const Services& services) {
    for (const Required& required : kRequired) {
        if (required.isThere(services)) continue;
        throw MissingService("Services::" + std::string(required.name) +
                             " is missing: the component cannot work without it");
    }
}

}  // namespace kelvane::platform
