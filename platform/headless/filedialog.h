// What the file dialog and the shell's items share.
#pragma once

#include <string>

#include "shobjidl.h"

namespace headless
{
// The caller's, with one reference.
IShellItem* MakeShellItem(const std::u16string& path);
IFileOpenDialog* MakeFileOpenDialog();
// To be freed with CoTaskMemFree; null without memory.
LPWSTR CopyToTaskMemory(const std::u16string& text);

// The counting that every object here needs. The object deletes itself with its last reference.
template <class Object, class Interface>
class Counted : public Interface
{
public:
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override
    {
        const ULONG left = --m_references;
        if (left == 0)
        {
            delete static_cast<Object*>(this);
        }
        return left;
    }

protected:
    ~Counted() = default;

    HRESULT Answer(bool offered, void** object)
    {
        if (object == nullptr)
        {
            return E_POINTER;
        }
        *object = nullptr;
        if (!offered)
        {
            return E_NOINTERFACE;
        }
        AddRef();
        *object = static_cast<Interface*>(this);
        return S_OK;
    }

private:
    ULONG m_references = 1;
};
}  // namespace headless
