#include "automation/server/class_factory.h"

#include "automation/catch_all.h"
#include "automation/server/standing_stubs.h"
#include "automation/unknown.h"

#include <utility>

namespace automation::server {

namespace {

class Factory final : public Unknown<IClassFactory> {
public:
    Factory(ClassFactory::Creator create, std::function<void()> onLastUnlock)
        : create_(std::move(create)), onLastUnlock_(std::move(onLastUnlock))
    {}

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** result) noexcept override
    {
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        return catchAll([&] { return create_()->QueryInterface(iid, result); });
    }

    STDMETHODIMP LockServer(BOOL lock) noexcept override
    {
        return catchAll([&] {
            if (lock) CoAddRefServerProcess();
            else if (CoReleaseServerProcess() == 0 && onLastUnlock_) onLastUnlock_();
            return S_OK;
        });
    }

private:
    IUnknown* interfaceOf(REFIID iid) noexcept override { return iid == IID_IClassFactory ? this : nullptr; }

    const ClassFactory::Creator create_;
    const std::function<void()> onLastUnlock_;
};

}

ClassFactory::ClassFactory(const CLSID& classId, Creator create, std::function<void()> onLastUnlock)
{
    const auto factory = ComPtr<IClassFactory>::adopt(new Factory(std::move(create), std::move(onLastUnlock)));
    check(CoRegisterClassObject(classId, factory.get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
          L"CoRegisterClassObject");
    keepStandingStubs();
}

void ClassFactory::revoke() noexcept
{
    if (cookie_) CoRevokeClassObject(std::exchange(cookie_, 0));
}

}
