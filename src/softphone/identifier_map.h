// The identifier map: which groupware record mirrors which softphone record.
#pragma once

#include "automation/object.h"
#include "softphone/softphone_session.h"

#include <cstdint>
#include <string>

namespace hublink {

enum class MapApplication : std::int32_t { outlook = 0, lotus = 1 };
enum class MapCollection : std::int32_t { history = 0, contacts = 1 };

// Opens the map anew as the session's. Without one every use of it fails. No error
// leaves it.
void openIdentifierMap(SoftphoneSession& session);

// Notifies the map's server that the program ends, so that it closes its store. Throws
// AutomationError.
void closeIdentifierMap(const SoftphoneSession& session);

// Remembers which groupware record mirrors a softphone record. Throws AutomationError.
void insertId(const automation::Object& map, const std::wstring& idAppli, const std::wstring& idOrvel,
              MapApplication application, MapCollection collection);

// The groupware identifier mapped to a softphone record, "" when it is not
// mapped. Throws AutomationError.
std::wstring mappedId(const automation::Object& map, const std::wstring& idOrvel, MapApplication application);

}
