#include "desk/lotus/notes.h"

#include "desk/common/text.h"
#include "desk/lotus/objects.h"
#include "desk/lotus/records.h"

namespace desk::lotus {

namespace {

template <class Object>
Object* found(const std::map<IDispatch*, Object*>& objects, const automation::Object& wanted)
{
    const auto position = objects.find(wanted.dispatch());
    return position == objects.end() ? nullptr : position->second;
}

}

Notes::Notes(Recorder& recorder, Screen& screen, std::function<void()> changed)
    : recorder_(recorder), changed_(std::move(changed)),
      documentObjects_(std::make_shared<std::map<IDispatch*, DocumentObject*>>()),
      itemObjects_(std::make_shared<std::map<IDispatch*, ItemObject*>>()),
      workspace_(screen, [this] { this->changed(); })
{}

bool Notes::WithoutCase::operator()(const std::wstring& one, const std::wstring& other) const
{
    return lowerCase(one) < lowerCase(other);
}

automation::ComPtr<IDispatch> Notes::session()
{
    return makeSession(*this);
}

automation::ComPtr<IDispatch> Notes::workspaceObject()
{
    return makeWorkspace(*this);
}

void Notes::changed()
{
    workspace_.screen().updateMain();
    if (changed_) changed_();
}

const std::wstring* Notes::environment(const std::wstring& name) const
{
    const auto position = environment_.find(name);
    return position == environment_.end() ? nullptr : &position->second;
}

void Notes::setEnvironment(const std::wstring& name, std::wstring value)
{
    environment_.insert_or_assign(name, std::move(value));
    changed();
}

std::wstring Notes::folderPrefix() const
{
    return behaviour.dataFolder.empty() ? L"" : behaviour.dataFolder + L"\\";
}

std::wstring Notes::reportedPath(const Database& database) const
{
    return database.server.empty() ? folderPrefix() + database.filePath : database.filePath;
}

SharedDatabase Notes::database(std::wstring_view server, std::wstring_view filePath) const
{
    const std::wstring prefix = folderPrefix();
    if (server.empty() && lowerCase(filePath).starts_with(lowerCase(prefix))) filePath.remove_prefix(prefix.size());
    for (const SharedDatabase& each : databases_)
        if (each->isAt(server, filePath)) return each;
    return nullptr;
}

void Notes::load(const std::vector<StoreRecord>& records)
{
    Contents contents = contentsOf(records);
    workspace_.clear();
    userName = std::move(contents.userName);
    version = std::move(contents.version);
    behaviour = std::move(contents.behaviour);
    environment_.clear();
    for (auto& [name, value] : contents.environment) environment_.insert_or_assign(name, value);
    databases_ = std::move(contents.databases);
    workspace_.icons() = std::move(contents.icons);
    workspace_.screen().updateMain();
}

std::vector<StoreRecord> Notes::records() const
{
    Contents contents;
    contents.userName = userName;
    contents.version = version;
    contents.behaviour = behaviour;
    contents.environment.assign(environment_.begin(), environment_.end());
    contents.databases = databases_;
    contents.icons = workspace_.icons();
    return recordsOf(contents);
}

DocumentObject* Notes::documentOf(const automation::Object& object) const
{
    return found(*documentObjects_, object);
}

ItemObject* Notes::itemOf(const automation::Object& object) const
{
    return found(*itemObjects_, object);
}

}
