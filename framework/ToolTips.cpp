#include "framework/ToolTips.h"

bool CreateToolTips(CWnd& window, std::unique_ptr<CToolTipCtrl>& toolTip)
{
    window.EnableToolTips(TRUE);
    toolTip = std::make_unique<CToolTipCtrl>();
    return toolTip->Create(&window, 0);
}

void ActivateToolTips(CToolTipCtrl& toolTip)
{
    toolTip.SendMessage(TTM_SETMAXTIPWIDTH, 0, MaxTipWidth);
    toolTip.SendMessage(TTM_SETDELAYTIME, TTDT_AUTOPOP, TipMilliseconds);
    toolTip.SendMessage(TTM_ACTIVATE, TRUE, 0);
}

void RelayToToolTips(CToolTipCtrl* toolTip, MSG* message)
{
    if (toolTip != nullptr)
    {
        toolTip->SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
    }
}
