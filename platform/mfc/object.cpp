#include "afx.h"

const CRuntimeClass CObject::classCObject = {"CObject", nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const
{
    for (const CRuntimeClass* record = this; record != nullptr; record = record->m_pBaseClass)
    {
        if (record == base)
        {
            return true;
        }
    }
    return false;
}
