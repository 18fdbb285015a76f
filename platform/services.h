// The services that one composition of the component runs on. A host builds the adapters and hands
// them over; the component keeps a pointer, so they outlive it. A service that is not there is
// null, and the commands that need it are disabled.
#pragma once

#include <functional>
#include <memory>

#include "platform/database.h"
#include "platform/date_time.h"
#include "platform/diagnostics.h"
#include "platform/printing.h"
#include "platform/reference_list.h"
#include "platform/registry.h"
#include "platform/windows.h"
#include "platform/xml_document.h"

namespace kelvane::platform {

struct Services {
    Windows* windows = nullptr;
    Registry* registry = nullptr;
    Diagnostics* diagnostics = nullptr;
    std::function<std::shared_ptr<Connection>()> createConnection;
    std::function<DateTime()> today;
    std::function<std::unique_ptr<ReferenceList>()> createReferenceList;
    std::function<std::unique_ptr<XmlDocument>()> createXmlDocument;
    std::function<std::unique_ptr<PrintControl>()> createPrintControl;
    std::function<std::unique_ptr<PrintStyleService>()> createPrintStyle;
};

}  // namespace kelvane::platform
