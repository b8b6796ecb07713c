// Objects of COM that stand in for those of the system, for one thread.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <wrl/client.h>

// The parts of an interface that every object has. It lives as long as it is referred to.
template <class Interface>
class FakeObject : public Interface {
public:
    virtual ~FakeObject() = default;
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool isKnown = id == __uuidof(Interface) || id == IID_IUnknown || id == IID_IDispatch;
        *object = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (isKnown) AddRef();
        return isKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references;
        if (left == 0) delete this;
        return left;
    }

private:
    ULONG references = 1;
};

template <class Object>
class FakeObjectFactory : public FakeObject<IClassFactory> {
public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
        Microsoft::WRL::ComPtr<Object> made;
        made.Attach(new Object);
        return made->QueryInterface(id, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

// Has the thread make such objects for that class, until CoRevokeClassObject with what is returned.
template <class Object>
DWORD RegisterFake(REFCLSID kind) {
    DWORD registration = 0;
    Microsoft::WRL::ComPtr<FakeObjectFactory<Object>> factory;
    factory.Attach(new FakeObjectFactory<Object>);
    CoRegisterClassObject(kind, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration);
    return registration;
}
