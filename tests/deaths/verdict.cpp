#include "verdict.h"

#include "softphone_records.h"

#include <algorithm>
#include <map>

namespace deaths {

namespace {

class Judge {
public:
    Judge(const State& state, const Groupware& groupware, const Permission& permission, const State* whole)
        : state_(state), groupware_(groupware), permission_(permission), whole_(whole)
    {}

    Verdict verdict()
    {
        judgeContacts();
        judgeCalls();
        judgeMap();
        return verdict_;
    }

private:
    void deviation(const std::wstring& text) { verdict_.deviations.push_back(text); }

    void judgeContacts()
    {
        std::set<std::wstring> wanted;
        if (groupware_.makesContactsOfCallers()) wanted.insert(std::begin(strangers), std::end(strangers));
        for (const Entry& entry : entries()) wanted.insert(entry.number);
        for (const std::wstring& number : wanted)
            count(L"contact " + number, found(state_.contacts, number), permission_.missing == number,
                  permission_.numbers.contains(number), whole_ ? &whole_->contacts : nullptr);
        refuseOthers(L"contact", state_.contacts, wanted);
    }

    void judgeCalls()
    {
        std::set<std::wstring> wanted;
        for (const Call& call : calls()) {
            wanted.insert(call.begin);
            count(L"call " + call.id, found(state_.calls, call.begin), false, permission_.calls.contains(call.id),
                  whole_ ? &whole_->calls : nullptr);
        }
        refuseOthers(L"call", state_.calls, wanted);
    }

    static std::vector<Mirror> found(const std::vector<Mirror>& mirrors, const std::wstring& key)
    {
        std::vector<Mirror> same;
        std::copy_if(mirrors.begin(), mirrors.end(), std::back_inserter(same),
                     [&](const Mirror& mirror) { return mirror.key == key; });
        return same;
    }

    void count(const std::wstring& what, const std::vector<Mirror>& mirrors, bool mayBeMissing, bool mayBeTwice,
               const std::vector<Mirror>* whole)
    {
        if (mirrors.empty() && mayBeMissing) {
            ++verdict_.missingAsAllowed;
            return;
        }
        if (mirrors.empty()) {
            ++verdict_.lost;
            deviation(what + L" is lost");
            return;
        }
        if (mirrors.size() == 2 && mayBeTwice) {
            ++verdict_.doubledAsAllowed;
        } else if (mirrors.size() > 1) {
            ++verdict_.doubledForbidden;
            deviation(what + L" is there " + std::to_wstring(mirrors.size()) + L" times");
        }
        // Of two, the one from before the trial was made by other hands.
        if (!whole || mirrors.size() != 1) return;
        if (mirrors[0].content != found(*whole, mirrors[0].key).at(0).content)
            deviation(what + L" is not whole: " + mirrors[0].content);
    }

    void refuseOthers(const wchar_t* what, const std::vector<Mirror>& mirrors, const std::set<std::wstring>& wanted)
    {
        for (const Mirror& mirror : mirrors)
            if (!wanted.contains(mirror.key)) deviation(std::wstring(what) + L" nobody has: " + mirror.content);
    }

    void judgeMap()
    {
        std::set<std::wstring> wanted;
        for (const Entry& entry : entries()) {
            wanted.insert(entry.id);
            judgeMapRecord(entry.id, 1, state_.contacts, entry.number);
        }
        for (const Call& call : calls()) {
            wanted.insert(call.id);
            judgeMapRecord(call.id, 0, state_.calls, call.begin);
        }
        for (const MapRecord& record : state_.map)
            if (!wanted.contains(record.softphoneId)) deviation(L"the map still has " + record.softphoneId);
    }

    void judgeMapRecord(const std::wstring& id, std::int32_t collection, const std::vector<Mirror>& mirrors,
                        const std::wstring& key)
    {
        std::vector<std::wstring> mapped;
        for (const MapRecord& record : state_.map)
            if (record.softphoneId == id && record.collection == collection &&
                record.application == groupware_.mapApplication())
                mapped.push_back(record.groupwareId);
        const auto leadsThere = [&](const Mirror& mirror) { return mirror.id == mapped[0] && mirror.key == key; };
        if (mapped.size() != 1) {
            if (mapped.empty()) ++verdict_.lost;
            deviation(id + L" is in the map " + std::to_wstring(mapped.size()) + L" times");
        } else if (std::none_of(mirrors.begin(), mirrors.end(), leadsThere)) {
            ++verdict_.lost;
            deviation(id + L" is mapped to nothing of its own");
        }
    }

    const State& state_;
    const Groupware& groupware_;
    const Permission& permission_;
    const State* const whole_;
    Verdict verdict_;
};

}

Verdict& Verdict::operator+=(const Verdict& other)
{
    lost += other.lost;
    missingAsAllowed += other.missingAsAllowed;
    doubledAsAllowed += other.doubledAsAllowed;
    doubledForbidden += other.doubledForbidden;
    deviations.insert(deviations.end(), other.deviations.begin(), other.deviations.end());
    return *this;
}

Verdict judge(const State& state, const Groupware& groupware, const Permission& permission, const State* whole)
{
    return Judge(state, groupware, permission, whole).verdict();
}

}
