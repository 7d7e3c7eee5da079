// Finds the Outlook contact that owns a telephone number: first by a filter
// that Outlook evaluates, then by a walk over all contacts that compares the
// numbers without their separators. Callers test `bOutlookInit` first. No
// error leaves these procedures.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// The filter for the thirteen telephone fields. A quote in the number is
// doubled, as Outlook wants it: otherwise a number could end its own text and
// go on as a condition. Everything else stays as it is.
std::wstring BuildPhoneFilter(const std::wstring& number);

// Whether the field, stripped, is the sought number. Sets `needsRewrite` when
// the field is written otherwise and rewriting is switched on; never clears it.
bool PhoneNumberMatches(const OutlookSession& session, const std::wstring& sought, const std::wstring& field,
                        bool& needsRewrite);

// What is read of a contact.
struct OutlookPerson {
    std::wstring lastName;
    std::wstring firstName;
    std::wstring email1Address;
    std::wstring entryId; // "" of nobody
};

// The first contact in the folder's order with the number, empty when there is
// none; a number written otherwise is rewritten and saved.
automation::Object WalkOutlookContacts(OutlookSession& session, const std::wstring& number);

// The contact with the number. When there is none the three texts are those of
// `known`. A text that cannot be read, as when Outlook refuses it,
// stays that of `known`, and so do those read after it.
OutlookPerson FindOutlookContact(OutlookSession& session, const std::wstring& number, OutlookPerson known = {});

// Opens the contact with the number on the screen; whether one was shown.
bool ShowOutlookContact(OutlookSession& session, const std::wstring& number);

}
