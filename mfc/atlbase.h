#pragma once

// Owns a reference to a COM object and releases it in the destructor.
template <class Interface>
class CComPtr
{
public:
    CComPtr() = default;
    ~CComPtr()
    {
        if (p != nullptr)
        {
            p->Release();
        }
    }
    CComPtr(const CComPtr&) = delete;
    CComPtr& operator=(const CComPtr&) = delete;

    Interface* operator->() const { return p; }

    Interface* p = nullptr;
};
