// The services that one composition of the component runs on. A host builds the adapters and hands
// them over; the component keeps a pointer, so they outlive the PeriodItem made with them. Which of
// them a host has to give is said at each; the commands that need another one are disabled while it
// is not there.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/database.h"
#include "platform/date_time.h"
#include "platform/diagnostics.h"
#include "platform/printing.h"
#include "platform/reference_list.h"
#include "platform/registry.h"
#include "platform/table_import.h"
#include "platform/user_settings.h"
#include "platform/windows.h"
#include "platform/xml_document.h"

namespace kelvane::platform {

// Everything is called on the user-interface thread. What a function makes belongs to the component
// and is never null.
struct Services {
    // Required.
    Windows* windows = nullptr;
    Registry* registry = nullptr;
    // Gives a new connection that is not open; asked once for each login that needs a new one.
    std::function<std::shared_ptr<Connection>()> createConnection;
    // Gives the present local date and time.
    std::function<DateTime()> today;

    // Optional: without it trapped errors are told on the notice line alone.
    Diagnostics* diagnostics = nullptr;
    // Optional: without it windows open in their first sizes. Belongs to the operator who is logged
    // in.
    UserSettings* userSettings = nullptr;
    // Optional: without it there are no pick lists. A new one is made for each list.
    std::function<std::unique_ptr<ReferenceList>()> createReferenceList;

    // Optional: without the first two nothing is printed or written to files. Whoever gives both
    // gives the third, which saves the print settings.
    std::function<std::unique_ptr<PrintControl>()> createPrintControl;
    std::function<std::unique_ptr<PrintStyleService>()> createPrintStyle;
    std::function<std::unique_ptr<XmlDocument>()> createXmlDocument;

    // Optional: without it no tables are imported, and nothing is compared with a ledger.
    TableImport* tableImport = nullptr;

    // Optional: without it there is no sheet to be signed. Asks for a file and writes the sheet
    // there, with the account tied to the trial balance and the mapping in these files (UTF-8).
    // False when the operator cancelled. Throws std::exception when it was not written.
    std::function<bool(const std::string& trial, const std::string& map)> writeSignOff;
};

// Throws MissingService, which names the service, unless all that are required are there.
void RequireServices(const Services& services);

}  // namespace kelvane::platform
