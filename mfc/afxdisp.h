#pragma once

// Would let dialogs hold ActiveX controls. No dialog here has one, so there is nothing to set up.
inline void AfxEnableControlContainer(void* = nullptr) {}
