// Message maps. A class declares its map with DECLARE_MESSAGE_MAP and defines it between BEGIN_MESSAGE_MAP
// and END_MESSAGE_MAP. A message without an entry is looked up in the base class's map.
#pragma once

#include <windows.h>

#include <type_traits>

class CCmdTarget;

// Calls the entry's handler on the object and returns the message's result.
using AFX_PMSG = LRESULT (*)(CCmdTarget* target, WPARAM wParam, LPARAM lParam);

struct AFX_MSGMAP_ENTRY
{
    UINT nMessage;
    UINT nCode;  // notification code of a WM_COMMAND entry
    UINT nID;    // ids nID to nLastID of a WM_COMMAND entry
    UINT nLastID;
    AFX_PMSG pfn;  // null ends the map
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

namespace afx_detail
{
// WM_COMMAND: wParam is the control's id.
template <class Class, auto member>
LRESULT CallCommand(CCmdTarget* target, [[maybe_unused]] WPARAM id, LPARAM)
{
    auto* object = static_cast<Class*>(target);
    if constexpr (std::is_invocable_v<decltype(member), Class*, UINT>)
    {
        (object->*member)(static_cast<UINT>(id));
    }
    else
    {
        (object->*member)();
    }
    return TRUE;
}

template <class Class, auto member>
LRESULT CallChar(CCmdTarget* target, WPARAM wParam, LPARAM lParam)
{
    (static_cast<Class*>(target)->*member)(static_cast<UINT>(wParam), LOWORD(lParam), HIWORD(lParam));
    return 0;
}

template <class Class, auto member>
LRESULT CallSysCommand(CCmdTarget* target, WPARAM wParam, LPARAM lParam)
{
    (static_cast<Class*>(target)->*member)(static_cast<UINT>(wParam), lParam);
    return 0;
}

template <class Class, auto member>
LRESULT CallGetDlgCode(CCmdTarget* target, WPARAM, LPARAM)
{
    return static_cast<LRESULT>((static_cast<Class*>(target)->*member)());
}

template <class Class, auto member>
LRESULT CallNcCreate(CCmdTarget* target, WPARAM, LPARAM lParam)
{
    return (static_cast<Class*>(target)->*member)(reinterpret_cast<LPCREATESTRUCTW>(lParam));
}
}  // namespace afx_detail

#define afx_msg

#define DECLARE_MESSAGE_MAP()                     \
protected:                                        \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)        \
    const AFX_MSGMAP* theClass::GetMessageMap() const \
    {                                                 \
        return GetThisMessageMap();                   \
    }                                                 \
    const AFX_MSGMAP* theClass::GetThisMessageMap()   \
    {                                                 \
        using ThisClass [[maybe_unused]] = theClass;  \
        using TheBaseClass = baseClass;               \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                      \
    {                                                                          \
        0, 0, 0, 0, nullptr                                                    \
    }                                                                          \
    }                                                                          \
    ;                                                                          \
    static const AFX_MSGMAP map = {&TheBaseClass::GetThisMessageMap, entries}; \
    return &map;                                                               \
    }

#define ON_CONTROL_RANGE(wNotifyCode, id, idLast, memberFxn) \
    {WM_COMMAND, static_cast<WORD>(wNotifyCode), id, idLast, &afx_detail::CallCommand<ThisClass, memberFxn>},
#define ON_CONTROL(wNotifyCode, id, memberFxn) ON_CONTROL_RANGE(wNotifyCode, id, id, memberFxn)
// Menu commands have the notification code 0, as BN_CLICKED has.
#define ON_COMMAND(id, memberFxn) ON_CONTROL(0, id, memberFxn)
#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_EN_CHANGE(id, memberFxn) ON_CONTROL(EN_CHANGE, id, memberFxn)
#define ON_LBN_SELCHANGE(id, memberFxn) ON_CONTROL(LBN_SELCHANGE, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)

#define ON_WM_CHAR() {WM_CHAR, 0, 0, 0, &afx_detail::CallChar<ThisClass, &ThisClass::OnChar>},
#define ON_WM_GETDLGCODE() \
    {WM_GETDLGCODE, 0, 0, 0, &afx_detail::CallGetDlgCode<ThisClass, &ThisClass::OnGetDlgCode>},
#define ON_WM_NCCREATE() {WM_NCCREATE, 0, 0, 0, &afx_detail::CallNcCreate<ThisClass, &ThisClass::OnNcCreate>},
#define ON_WM_SYSCOMMAND() \
    {WM_SYSCOMMAND, 0, 0, 0, &afx_detail::CallSysCommand<ThisClass, &ThisClass::OnSysCommand>},
