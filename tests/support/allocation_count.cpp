#include "support/allocation_count.h"

#include "automation/error.h"

#include <windows.h>
#include <objidl.h>

#include <atomic>

namespace support {

namespace {

class Spy final : public IMallocSpy {
public:
    std::atomic<long> outstanding = 0;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid != IID_IUnknown && iid != IID_IMallocSpy) {
            *result = nullptr;
            return E_NOINTERFACE;
        }
        *result = static_cast<IMallocSpy*>(this);
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    STDMETHODIMP_(SIZE_T) PreAlloc(SIZE_T size) override { return size; }
    STDMETHODIMP_(void*) PostAlloc(void* block) override
    {
        if (block) ++outstanding;
        return block;
    }
    STDMETHODIMP_(void*) PreFree(void* block, BOOL spied) override
    {
        if (block && spied) --outstanding;
        return block;
    }
    STDMETHODIMP_(void) PostFree(BOOL) override {}
    STDMETHODIMP_(SIZE_T) PreRealloc(void* block, SIZE_T size, void** changed, BOOL) override
    {
        *changed = block;
        return size;
    }
    STDMETHODIMP_(void*) PostRealloc(void* block, BOOL) override { return block; }
    STDMETHODIMP_(void*) PreGetSize(void* block, BOOL) override { return block; }
    STDMETHODIMP_(SIZE_T) PostGetSize(SIZE_T size, BOOL) override { return size; }
    STDMETHODIMP_(void*) PreDidAlloc(void* block, BOOL) override { return block; }
    STDMETHODIMP_(int) PostDidAlloc(void*, BOOL, int answer) override { return answer; }
    STDMETHODIMP_(void) PreHeapMinimize() override {}
    STDMETHODIMP_(void) PostHeapMinimize() override {}
};

}

long outstandingAllocations()
{
    // Never revoked: COM would go on calling it for the blocks that it has seen.
    static Spy& spy = []() -> Spy& {
        Spy& made = *new Spy;
        automation::check(CoRegisterMallocSpy(&made), L"CoRegisterMallocSpy");
        return made;
    }();
    return spy.outstanding;
}

}
