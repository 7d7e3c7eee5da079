// Notes inside a unit test's own process: the same objects as the program's,
// without windows, and while this lives, what CreateObject gives for
// "Notes.NotesSession" and "Notes.NotesUIWorkspace".
//
//     desk::lotus::InProcess notes;
//     notes.load(L"[database]\nFile=names.nsf\n[view]\nName=People\n...");
//     const automation::Object session = automation::Object::create(L"Notes.NotesSession");
//     ...
//     EXPECT_EQ(notes.ask(L"windows"), L"...");
#pragma once

#include "automation/server/class_factory.h"
#include "automation/server/registration.h"
#include "desk/common/text.h"
#include "desk/lotus/classes.h"
#include "desk/lotus/notes.h"

#include <stdexcept>

namespace desk::lotus {

class InProcess {
public:
    // With a recorder of another partner, the record tells the order among both.
    explicit InProcess(Recorder* shared = nullptr)
        : recorder_(shared ? *shared : ownRecorder_), notes_(recorder_, screen_, [this] { ++changes_; })
    {
        offer();
    }
    ~InProcess() { withdraw(); }
    InProcess(const InProcess&) = delete;
    InProcess& operator=(const InProcess&) = delete;

    // "Notes.NotesSession" or "Notes.NotesUIWorkspace", without going through
    // COM. Every object got from it ends before this does.
    automation::Object create(std::wstring_view progId)
    {
        return automation::Object((progId == sessionProgId ? notes_.session() : notes_.workspaceObject()).get());
    }

    // Notes is not installed any more: CreateObject fails until `offer`. A class
    // that stayed registered would start the test's program again as its server.
    void withdraw()
    {
        session_.reset();
        workspace_.reset();
        for (const auto& each : classes) automation::server::unregisterClass(each);
    }

    void offer()
    {
        for (const auto& each : classes) automation::server::registerClass(each, automation::server::programPath());
        session_ =
            std::make_unique<automation::server::ClassFactory>(classes[0].classId, [this] { return notes_.session(); });
        workspace_ = std::make_unique<automation::server::ClassFactory>(classes[1].classId,
                                                                        [this] { return notes_.workspaceObject(); });
    }

    // Replaces everything by the records of the store text.
    void load(std::wstring_view storeText) { notes_.load(parseStore(storeText)); }

    // A control command of Notes' own (documents, windows...); its errors are thrown.
    std::wstring ask(std::wstring_view request)
    {
        const std::wstring word = takeWord(request);
        if (auto response = notes_.command(word, request)) return *response;
        throw std::runtime_error("unknown command");
    }

    Recorder& recorder() noexcept { return recorder_; }
    Notes& model() noexcept { return notes_; }
    int changes() const noexcept { return changes_; } // of what is saved

private:
    Recorder ownRecorder_;
    Recorder& recorder_;
    NoScreen screen_;
    int changes_ = 0;
    Notes notes_;
    std::unique_ptr<automation::server::ClassFactory> session_;
    std::unique_ptr<automation::server::ClassFactory> workspace_;
};

}
