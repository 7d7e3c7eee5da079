// Notes as a whole: the user, the environment (notes.ini), the databases with
// their documents, the user's workspace, and the objects that clients get. The
// program and unit tests make one each; it outlives every object that was got
// from it (let go of them first).
#pragma once

#include "automation/com_ptr.h"
#include "automation/object.h"
#include "desk/common/recorder.h"
#include "desk/common/store_file.h"
#include "desk/lotus/behaviour.h"
#include "desk/lotus/workspace.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace desk::lotus {

class DocumentObject;
class ItemObject;

class Notes {
public:
    // `changed`: what is saved is other than before. May be empty.
    Notes(Recorder& recorder, Screen& screen, std::function<void()> changed = {});
    Notes(const Notes&) = delete;
    Notes& operator=(const Notes&) = delete;

    // What a client gets that creates an object of that class: a new one each time.
    automation::ComPtr<IDispatch> session();
    automation::ComPtr<IDispatch> workspaceObject();

    Recorder& recorder() noexcept { return recorder_; }
    Workspace& workspace() noexcept { return workspace_; }
    const Workspace& workspace() const noexcept { return workspace_; }

    // After every change of what is saved.
    void changed();

    // As in the user's preferences.
    std::wstring userName = L"CN=Notes User/O=Acme"; // canonical
    std::wstring version = L"Release 8.5.3|September 15, 2011";
    Behaviour behaviour;

    // By how much the next object's dispatch identifiers differ from its class's.
    DISPID nextIdentifierShift() noexcept { return behaviour.ownIdentifiers ? ++shifts_ : 0; }

    // The value of a line of notes.ini; null when there is none.
    const std::wstring* environment(const std::wstring& name) const;
    void setEnvironment(const std::wstring& name, std::wstring value);
    const auto& environment() const noexcept { return environment_; }

    const std::vector<SharedDatabase>& databases() const noexcept { return databases_; }

    // The database there; null when there is none.
    SharedDatabase database(std::wstring_view server, std::wstring_view filePath) const;

    // What NotesDatabase.FilePath tells of an open database.
    std::wstring reportedPath(const Database& database) const;

    // The records of the store. Loading others closes the windows.
    void load(const std::vector<StoreRecord>& records);
    std::vector<StoreRecord> records() const;

    // Carries a control command of Notes' own out; see README.md. No value for
    // an unknown word; std::runtime_error when it cannot be done.
    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest);

    // Which object of ours a client hands back; null for any other.
    DocumentObject* documentOf(const automation::Object& object) const;
    ItemObject* itemOf(const automation::Object& object) const;

    // For the objects themselves, while they live.
    template <class Object>
    class Registered {
    public:
        Registered(std::shared_ptr<std::map<IDispatch*, Object*>> objects, Object* object)
            : objects_(std::move(objects)), object_(object)
        {
            (*objects_)[object_] = object_;
        }
        ~Registered() { objects_->erase(object_); }
        Registered(const Registered&) = delete;
        Registered& operator=(const Registered&) = delete;

    private:
        const std::shared_ptr<std::map<IDispatch*, Object*>> objects_;
        Object* const object_;
    };
    const auto& documentObjects() const noexcept { return documentObjects_; }
    const auto& itemObjects() const noexcept { return itemObjects_; }

private:
    std::wstring folderPrefix() const;

    struct WithoutCase {
        bool operator()(const std::wstring& one, const std::wstring& other) const;
    };

    Recorder& recorder_;
    const std::function<void()> changed_;
    std::map<std::wstring, std::wstring, WithoutCase> environment_;
    std::vector<SharedDatabase> databases_;
    DISPID shifts_ = 0;
    std::shared_ptr<std::map<IDispatch*, DocumentObject*>> documentObjects_;
    std::shared_ptr<std::map<IDispatch*, ItemObject*>> itemObjects_;
    Workspace workspace_;
};

}
