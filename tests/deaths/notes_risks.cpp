// What may happen when something goes wrong at one of Notes' calls.
#include "notes_mirror.h"
#include "softphone_records.h"

namespace deaths {

namespace {

using Calls = std::vector<PartnerCall>;

// What the copying of a call does after it has saved the document: it takes the
// identifier and looks whether the history is in front.
bool followsTheSaving(const PartnerCall& call)
{
    return call.member == L"NotesDocument.NoteID" || call.member == L"NotesDocument.NoteId" ||
           call.isOf(L"NotesUIWorkspace") || call.isOf(L"NotesUIDatabase") || call.member == L"NotesDatabase.FileName";
}

// What a search in the address books does. Within two seconds an answer serves again.
bool isOfASearch(const PartnerCall& call)
{
    return call.isOf(L"NotesView") || call.member == L"NotesSession.GetDatabase" ||
           call.member == L"NotesDatabase.GetView" || call.member == L"NotesDatabase.LastModified" ||
           call.member == L"NotesDocument.GetItemValue" || call.member == L"NotesDocument.NoteID" ||
           call.member == L"NotesDocument.NoteId";
}

// Follows the document of a call, from its making on. It is open from the
// moment when it is saved until something else is done in Notes.
class OpenDocuments {
public:
    explicit OpenDocuments(const Calls& calls) : calls_(calls)
    {
        for (const Call& call : deaths::calls())
            if (!call.isMirrored) waiting_.push_back(call.id);
    }

    void at(std::size_t index, Risk& risk)
    {
        const PartnerCall& call = calls_[preparedBy(calls_, index)];
        if (!open_.empty() && !followsTheSaving(call)) {
            open_.clear();
            copied_.clear();
        }
        const bool begins = call.is(L"NotesDatabase.CreateDocument", L"method") && nextForm(index) == L"BSTR \"Call\"";
        if (begins && copied_.empty()) copied_ = waiting_.at(next_++);
        risk.beingCopied = copied_;
        risk.openBefore = open_;
        if (calls_[index].is(L"NotesDocument.Save", L"method")) open_ = copied_;
        risk.openAfter = open_;
    }

private:
    std::wstring nextForm(std::size_t from) const
    {
        while (!calls_.at(from).is(L"NotesDocument.Form", L"put")) ++from;
        return calls_[from].arguments;
    }

    const Calls& calls_;
    std::vector<std::wstring> waiting_; // the softphone's calls, in their order
    std::size_t next_ = 0;
    std::wstring copied_;               // the one whose document is being made
    std::wstring open_;
};

// Follows which number is being looked for in the personal book, from the opening of
// the book or of its view on until the document is known or missing.
class NotesLookUps {
public:
    explicit NotesLookUps(const Calls& calls) : calls_(calls) {}

    std::wstring at(std::size_t index, bool copiesACall)
    {
        const PartnerCall& call = calls_[preparedBy(calls_, index)];
        if (opensOrAsks(call)) number_ = copiesACall ? L"" : nextKey(index);
        else if (!identifies(call)) number_.clear();
        return number_;
    }

private:
    static bool opensOrAsks(const PartnerCall& call)
    {
        return call.member == L"NotesSession.GetDatabase" || call.isOf(L"NotesDatabase") || call.isOf(L"NotesView");
    }

    static bool identifies(const PartnerCall& call)
    {
        return call.member == L"NotesDocument.NoteID" || call.member == L"NotesDocument.NoteId";
    }

    // The key that is asked for in the book that is opened here, or is open; "" when
    // the book is opened for something else.
    std::wstring nextKey(std::size_t from) const
    {
        while (calls_[from].isLookUp()) ++from;
        for (std::size_t index = from; index < calls_.size(); ++index) {
            const PartnerCall& call = calls_[index];
            if (index != from && call.member == L"NotesSession.GetDatabase") return L"";
            if (call.member == L"NotesDatabase.CreateDocument") return L"";
            if (!call.is(L"NotesView.GetDocumentByKey", L"method")) continue;
            const std::size_t begin = call.arguments.find(L'"') + 1;
            return call.arguments.substr(begin, call.arguments.find(L'"', begin) - begin);
        }
        return L"";
    }

    const Calls& calls_;
    std::wstring number_;
};

}

std::vector<Risk> NotesMirror::risks(const Calls& calls) const
{
    std::vector<Risk> risks(calls.size());
    OpenDocuments openCalls(calls);
    NotesLookUps lookUps(calls);
    bool areCallsCopied = false; // an entry's contact is always asked for
    for (std::size_t index = 0; index < calls.size(); ++index) {
        openCalls.at(index, risks[index]);
        areCallsCopied = areCallsCopied || !risks[index].beingCopied.empty();
        risks[index].isUnsteady = areCallsCopied && isOfASearch(calls[index]);
        risks[index].lookedFor = lookUps.at(index, !risks[index].beingCopied.empty());
    }
    return risks;
}

}
