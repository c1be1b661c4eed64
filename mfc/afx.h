// The root of the class library: run-time class records, and the exception that ends a data exchange.
#pragma once

#include "afxstr.h"

struct CRuntimeClass
{
    const char* m_lpszClassName;
    const CRuntimeClass* m_pBaseClass;  // null for CObject
};

class CObject
{
public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject() = default;

    virtual const CRuntimeClass* GetRuntimeClass() const { return &classCObject; }

    static constexpr CRuntimeClass classCObject = {"CObject", nullptr};
};

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name)               \
public:                                           \
    static const CRuntimeClass class##class_name; \
    const CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                                 \
    const CRuntimeClass class_name::class##class_name = {#class_name, RUNTIME_CLASS(base_class_name)}; \
    const CRuntimeClass* class_name::GetRuntimeClass() const                                           \
    {                                                                                                  \
        return RUNTIME_CLASS(class_name);                                                              \
    }

// CDataExchange::Fail throws it and CWnd::UpdateData catches it. No other code uses it.
struct CUserException
{
};
