// The mail that asks a colleague to call somebody back: opened on the screen,
// for the user to edit and send. The filled template is its subject.
#pragma once

#include "common/party.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// Replaces "<LastName>", then "<PhoneNumber>", then "<FirstName>", every
// occurrence; a placeholder that a last name brings in is replaced too.
std::wstring FillTemplate(const std::wstring& text, const Party& caller);

// The configured template, filled.
std::wstring MakeCallBackText(const OutlookSession& session, const Party& caller);

// Opens a new mail with an empty body; whether it was displayed. No error leaves it.
bool SendOutlookMail(OutlookSession& session, const std::wstring& to, const std::wstring& subject);

}
