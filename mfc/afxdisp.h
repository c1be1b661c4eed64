#pragma once

// In MFC this enables ActiveX controls in dialogs. No dialog here has any, so it does nothing.
inline void AfxEnableControlContainer(void* = nullptr) {}
