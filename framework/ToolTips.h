#pragma once

#include <afxcmn.h>

#include <memory>

// The tips of one window: wrapped at 300 pixels, up for 30 seconds.
inline constexpr int MaxTipWidth = 300;
inline constexpr int TipMilliseconds = 30000;

// Makes a window's tooltip control. False if that failed: the control object stands all the same, without
// effect.
bool CreateToolTips(CWnd& window, std::unique_ptr<CToolTipCtrl>& toolTip);

// To be called once the tools are added.
void ActivateToolTips(CToolTipCtrl& toolTip);

// Shows the control, if there is one, the messages that its window is about to get.
void RelayToToolTips(CToolTipCtrl* toolTip, MSG* message);
