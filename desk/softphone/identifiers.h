// The softphone's published identifiers, written once for the interface
// definition and for the program. Only what both compilers understand may
// stand here, hence macros: every identifier is a bare GUID or a number.
//
// The event identifiers are odd on purpose. A client has to find an event by
// its name, as it must with any softphone whose numbers it does not know.
#ifndef DESK_SOFTPHONE_IDENTIFIERS_H
#define DESK_SOFTPHONE_IDENTIFIERS_H

// clang-format off: bare digits, for the description of the types takes no texts
// NOLINTBEGIN(bugprone-macro-parentheses): nor parentheses
#define PAVEX_LIBRARY 7044a2df-e375-4fc5-b668-8fe45ba8ab8e

#define PAVEX_APPLICATION_CLASS 6e152d67-6225-499b-9c3f-4eeb349b9cd1
#define PAVEX_LINE_CLASS 8164df32-88dc-4b32-a19f-953330607a12
#define PAVEX_HISTORY_CLASS 3891a87b-dd2f-42f4-9983-7accc6d1031d
#define PAVEX_ADDRESS_BOOK_CLASS 77300630-e971-4f07-8adb-3f373a64a758

#define PAVEX_APPLICATION 47c8f0bd-1ce1-4571-aa1a-78d8ef263f5b
#define PAVEX_USER 86a6e620-0134-41e2-bf8f-e6bfbc586aba
#define PAVEX_LINE bfe5ebc1-9ceb-47d3-8609-bd3a0237bd21
#define PAVEX_HISTORY 6e4f7a10-45dc-4240-a0f0-14ca0542ad39
#define PAVEX_HISTORY_ITEM f0d99b22-4d88-4823-93c8-3703f56ca800
#define PAVEX_ADDRESS_BOOK 5b03e56d-fd17-43ae-a6b0-75cc107ec66c

#define PAVEX_APPLICATION_EVENTS daebee58-4f57-4097-8eea-cd34d28a1477
#define PAVEX_LINE_EVENTS 6416b89b-ce9c-4019-b65b-dd01454b2072
#define PAVEX_HISTORY_EVENTS a81bd80a-24c8-4e92-b562-3ad4860b96a3
#define PAVEX_ADDRESS_BOOK_EVENTS dbf51e18-cdff-49f7-8739-f30ccd74af6b

#define PAVEX_ON_QUIT 317
#define PAVEX_ON_LINE_NEW_CALL 59
#define PAVEX_ON_HISTORIC_NEW_ITEM 131
#define PAVEX_ON_HISTORIC_DELETE_ITEM 77
#define PAVEX_ON_REPERTORY_NEW_ENTRY 203
#define PAVEX_ON_REPERTORY_DELETE_ENTRY 89

#endif
// NOLINTEND(bugprone-macro-parentheses)
// clang-format on
