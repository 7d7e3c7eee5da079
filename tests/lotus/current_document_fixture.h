// What the tests of the document in front share: documents that the user looks
// at, and a person who is known.
#pragma once

#include "each_call.h"
#include "lotus/current_document.h"

namespace hublink {

class CurrentDocumentFixture : public LotusDocumentsFixture {
protected:
    std::wstring update()
    {
        const Party offered = UpdateCurrentDocumentNumber(session);
        lastName = offered.lastName;
        firstName = offered.firstName;
        return offered.number;
    }

    // A ready session that looks senders up and knows Claire Petit.
    void open()
    {
        again();
        session.bCallInMail = true;
        add(ownBook, L"Form=Person\nLastName=Petit\nFirstName=Claire\nOfficePhoneNumber=0299\n"
                     L"MailAddress=claire@example.com");
        changes = notes.changes();
    }

    // A document that the user looks at, for reading unless `mode` is " edit".
    std::wstring front(const std::wstring& database, const std::wstring& items, const std::wstring& mode = L"")
    {
        const std::wstring id = add(database, items);
        notes.ask(L"open " + id + mode);
        changes = notes.changes();
        forgetCalls();
        return id;
    }

    // As it is saved, even if something else is on the screen.
    std::wstring saved(const std::wstring& database, const wchar_t* item)
    {
        return field(documents(database).at(0), item);
    }

    bool nothingWasSaved() { return notes.changes() == changes; }

    std::wstring noteIdOf(const wchar_t* database) { return saved(database, L"@NoteID"); }

    // What changes a document or the screen, in order.
    Lines deeds()
    {
        Lines lines;
        for (const std::wstring& line : record())
            for (const wchar_t* deed : {L".ReplaceItemValue ", L".Save ", L".EditDocument ", L".Close "})
                if (line.find(deed) != std::wstring::npos) lines.push_back(line);
        return lines;
    }

    // These, then what every change ends with.
    static Lines thenSavedAndShownAnew(Lines lines)
    {
        lines.insert(lines.end(), {L"NotesDocument.Save method (BOOL True, BOOL True)",
                                   L"NotesUIWorkspace.EditDocument method (BOOL False, DISPATCH)",
                                   L"NotesUIDocument.Close method ()"});
        return lines;
    }

    std::wstring lastName;
    std::wstring firstName;
    int changes = 0;
};

}
