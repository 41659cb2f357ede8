// Opening the document behind a movement: which host call, which right, which window must not be open
// already.
#pragma once

#include <cstdint>
#include <string_view>

#include "host/services/host.h"
#include "module/framework/movement_types.h"

namespace goods {

enum class DocumentOutcome {
  Opened,     // the host's window was shown and is closed again
  NotOpened,  // refused, busy, or nothing to open; the user has been told where the host tells it
};

// Opens the document of a stock-card row by its Type and OperationCode, after asking the host whether another
// part works with the document's module, whether the user may open it, and whether such a window is open
// already, in this order. A row whose type is null, or none that is known, opens nothing.
DocumentOutcome OpenDocument(THost& host, const Value& type, std::int64_t operationCode);

// The good's own record: a change there may change the stock card, so the card is read again afterwards.
bool ChangesStockCard(const Value& type);

// What messages call a document of that kind; empty where none names it.
std::string_view DocumentName(DocumentKind kind);

}  // namespace goods
