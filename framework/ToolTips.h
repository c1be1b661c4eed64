#pragma once

#include <afxcmn.h>

#include <functional>
#include <memory>

// Tips wrap at 300 pixels and stay for 30 seconds.
inline constexpr int MaxTipWidth = 300;
inline constexpr int TipMilliseconds = 30000;

// Makes the window's tooltip control and has addTips add the tools. If the control cannot be made, nothing is
// added; the object is there all the same, without effect.
void SetUpToolTips(CWnd& window, std::unique_ptr<CToolTipCtrl>& toolTip,
                   const std::function<void()>& addTips);

// Passes a message of the window on to the tooltip control, if there is one yet.
void RelayToToolTips(CToolTipCtrl* toolTip, MSG* message);
