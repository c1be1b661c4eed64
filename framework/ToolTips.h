#pragma once

#include <afxcmn.h>

#include <functional>
#include <memory>

// Creates the window's tooltip control and calls addTips to add the tools. Tooltips wrap at 300 pixels and
// are shown for 30 seconds. If the control cannot be created, addTips is not called and `toolTip` has no
// window, so it has no effect.
void SetUpToolTips(CWnd& window, std::unique_ptr<CToolTipCtrl>& toolTip,
                   const std::function<void()>& addTips);

// Relays a message of the window to its tooltip control, which may be null.
void RelayToToolTips(CToolTipCtrl* toolTip, MSG* message);
