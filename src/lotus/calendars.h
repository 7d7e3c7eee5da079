// The group calendars of the user's mail database.
#pragma once

#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

// The full-text query for all group calendars.
std::wstring GroupCalendarQuery();

// Opens every group calendar that lists the person with the number. Nothing
// happens with "ShowGrpwAgenda" off. No error leaves it.
void ShowGroupCalendars(LotusSession& session, const std::wstring& number);

}
