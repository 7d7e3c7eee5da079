#include "automation/server/class_factory.h"
#include "automation/unknown.h"

#include <utility>

namespace automation::server {

namespace {

class Factory final : public Unknown<IClassFactory> {
public:
    Factory(ClassFactory::Creator create, std::function<void()> unused)
        : create_(std::move(create)), unused_(std::move(unused))
    {
    }

    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** result) override
    {
        *result = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        try {
            return create_()->QueryInterface(iid, result);
        } catch (const AutomationError& error) {
            return error.code();
        } catch (const std::exception&) {
            return E_FAIL;
        }
    }

    STDMETHODIMP LockServer(BOOL lock) override
    {
        if (lock)
            CoAddRefServerProcess();
        else if (CoReleaseServerProcess() == 0 && unused_)
            unused_();
        return S_OK;
    }

private:
    bool answers(REFIID iid) const override { return iid == IID_IClassFactory; }

    const ClassFactory::Creator create_;
    const std::function<void()> unused_;
};

}

ClassFactory::ClassFactory(const CLSID& classId, Creator create, std::function<void()> unused)
{
    const auto factory = ComPtr<IClassFactory>::adopt(new Factory(std::move(create), std::move(unused)));
    check(CoRegisterClassObject(classId, factory.get(), CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE, &cookie_),
          L"CoRegisterClassObject");
}

void ClassFactory::revoke() noexcept
{
    if (cookie_) CoRevokeClassObject(std::exchange(cookie_, 0));
}

}
