// Finds the Outlook contact that owns a telephone number: first by a filter
// that Outlook evaluates, then by a walk over all contacts that compares the
// numbers without their separators. Callers test `bOutlookInit` first. No
// error leaves these procedures.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

// The filter for the thirteen telephone fields. A quote in the number is
// doubled, as Outlook wants it: otherwise a number could end its own text and
// go on as a condition. Everything else stays as it is.
std::wstring BuildPhoneFilter(const std::wstring& number);

// Whether the field, stripped, is the sought number. Sets `needsRewrite` when
// the field is written otherwise and rewriting is switched on; never clears it.
bool PhoneNumberMatches(const OutlookSession& session, const std::wstring& sought, const std::wstring& field,
                        bool& needsRewrite);

// The first contact in the folder's order with the number; a number written
// otherwise is rewritten and saved. The three texts are accepted and not read.
bool WalkOutlookContacts(OutlookSession& session, const std::wstring& number, const std::wstring& lastName,
                         const std::wstring& firstName, const std::wstring& email, automation::Object& contact);

// The EntryID of the contact with the number, its names and mail address in
// the three texts. "" when there is none: the texts then stay as they were. So
// does the text that Outlook refuses to tell, and those after it.
std::wstring FindOutlookContact(OutlookSession& session, const std::wstring& number, std::wstring& lastName,
                                std::wstring& firstName, std::wstring& email1Address);

// Opens the contact with the number on the screen; whether one was shown.
bool ShowOutlookContact(OutlookSession& session, const std::wstring& number);
