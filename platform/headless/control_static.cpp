#include "control.h"

namespace headless
{
namespace
{
class Static : public Control
{
public:
    using Control::Control;

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_NCHITTEST:
            return Notifies() ? HTCLIENT : HTTRANSPARENT;
        case WM_LBUTTONDOWN:
        case WM_NCLBUTTONDOWN:
            return Tell(STN_CLICKED);
        case WM_LBUTTONDBLCLK:
        case WM_NCLBUTTONDBLCLK:
            return Tell(STN_DBLCLK);
        case WM_ENABLE:
            return Tell(wParam ? STN_ENABLE : STN_DISABLE);
        default:
            return Control::Handle(message, wParam, lParam);
        }
    }

private:
    bool Notifies() const { return (Style() & SS_NOTIFY) != 0; }

    LRESULT Tell(int code) const
    {
        if (Notifies())
        {
            static_cast<void>(Notify(code));
        }
        return 0;
    }
};
}  // namespace

void RegisterStatic()
{
    RegisterControl<Static>(u"Static");
}
}  // namespace headless
