#include "framework/ToolTips.h"

void SetUpToolTips(CWnd& window, std::unique_ptr<CToolTipCtrl>& toolTip, const std::function<void()>& addTips)
{
    window.EnableToolTips(TRUE);
    toolTip = std::make_unique<CToolTipCtrl>();
    if (toolTip->Create(&window, 0))
    {
        addTips();
        toolTip->SendMessage(TTM_SETMAXTIPWIDTH, 0, 300);
        toolTip->SendMessage(TTM_SETDELAYTIME, TTDT_AUTOPOP, 30000);
        toolTip->SendMessage(TTM_ACTIVATE, TRUE, 0);
    }
}

void RelayToToolTips(CToolTipCtrl* toolTip, MSG* message)
{
    if (toolTip != nullptr)
    {
        toolTip->SendMessage(TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(message));
    }
}
