#include "automation/server/standing_stubs.h"

#include "automation/com_ptr.h"
#include "automation/unknown.h"

#include <objbase.h>
#include <ocidl.h>

#include <algorithm>
#include <array>
#include <new>

namespace automation::server {

namespace {

const std::array<IID, 7>& servedInterfaces()
{
    static const std::array<IID, 7> all{
        IID_IUnknown,         IID_IClassFactory,    IID_IDispatch, IID_IEnumVARIANT, IID_IConnectionPointContainer,
        IID_IConnectionPoint, IID_IProvideClassInfo};
    return all;
}

// What the stubs stand for. No client ever gets it, so nothing but IUnknown is called.
class Placeholder final : public Unknown<IUnknown> {
    IUnknown* interfaceOf(REFIID iid) noexcept override
    {
        const auto& all = servedInterfaces();
        return std::find(all.begin(), all.end(), iid) != all.end() ? this : nullptr;
    }
};

bool keepStub(IUnknown& object, const IID& iid) noexcept
{
    ComPtr<IStream> reference;
    return SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, reference.receive())) &&
           SUCCEEDED(CoMarshalInterface(reference.get(), iid, &object, MSHCTX_LOCAL, nullptr, MSHLFLAGS_TABLESTRONG));
}

std::size_t makeStandingStubs() noexcept
{
    const auto placeholder = ComPtr<IUnknown>::adopt(new (std::nothrow) Placeholder);
    if (!placeholder) return 0;
    const auto& all = servedInterfaces();
    return static_cast<std::size_t>(
        std::count_if(all.begin(), all.end(), [&](const IID& iid) { return keepStub(*placeholder.get(), iid); }));
}

}

std::size_t keepStandingStubs() noexcept
{
    static const std::size_t kept = makeStandingStubs();
    return kept;
}

}
