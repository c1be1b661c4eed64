// COM, as far as the file dialog goes.
#pragma once

#include "windows.h"

#define STDMETHODCALLTYPE
#define STDMETHODIMP HRESULT

struct IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) = 0;
    virtual ULONG STDMETHODCALLTYPE AddRef() = 0;
    virtual ULONG STDMETHODCALLTYPE Release() = 0;

protected:
    // Objects go by their last Release.
    ~IUnknown() = default;
};
typedef IUnknown* LPUNKNOWN;

extern "C" const IID IID_IUnknown;

typedef enum tagCOINIT
{
    COINIT_MULTITHREADED = 0x0,
    COINIT_APARTMENTTHREADED = 0x2,
    COINIT_DISABLE_OLE1DDE = 0x4,
    COINIT_SPEED_OVER_MEMORY = 0x8
} COINIT;

#define CLSCTX_INPROC_SERVER 0x1
#define CLSCTX_INPROC_HANDLER 0x2
#define CLSCTX_LOCAL_SERVER 0x4
#define CLSCTX_ALL 0x17

// S_FALSE if the thread has been initialised already, in which case it is to be uninitialised all the same.
HRESULT WINAPI CoInitializeEx(LPVOID reserved, DWORD model);
void WINAPI CoUninitialize();
// On failure *object is null.
HRESULT WINAPI CoCreateInstance(REFCLSID clsid, LPUNKNOWN outer, DWORD context, REFIID riid, LPVOID* object);
LPVOID WINAPI CoTaskMemAlloc(SIZE_T size);
void WINAPI CoTaskMemFree(LPVOID memory);
