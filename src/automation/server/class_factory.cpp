#include "automation/server/class_factory.h"

#include <utility>

namespace automation::server {

namespace {

class Factory final : public IClassFactory {
public:
    Factory(ClassFactory::Creator create, std::function<void()> unused)
        : create_(std::move(create)), unused_(std::move(unused))
    {
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid != IID_IUnknown && iid != IID_IClassFactory) {
            *result = nullptr;
            return E_NOINTERFACE;
        }
        *result = static_cast<IClassFactory*>(this);
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
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
    ~Factory() = default;

    const ClassFactory::Creator create_;
    const std::function<void()> unused_;
    ULONG references_ = 1;
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
