// The automation objects, made for clients as they are asked for.
#pragma once

#include "desk/lotus/notes_object.h"

namespace desk::lotus {

automation::ComPtr<IDispatch> makeSession(Notes& notes);
automation::ComPtr<IDispatch> makeWorkspace(Notes& notes);

// Nothing for a null database, view, document or window.
automation::Value databaseValue(Notes& notes, const SharedDatabase& database);
automation::Value viewValue(Notes& notes, const SharedDatabase& database, const View* view);
automation::Value documentValue(Notes& notes, const SharedDatabase& database, const SavedNote& note);
automation::Value windowValue(Notes& notes, WindowId id);
automation::Value uiDatabaseValue(Notes& notes, const SharedDatabase& database);
automation::Value uiViewValue(Notes& notes, const SharedDatabase& database, const View* view);

// A database that is not there or cannot be opened.
automation::Value closedDatabaseValue(Notes& notes, const std::wstring& server, const std::wstring& filePath);

}
