// Dialog templates, of both kinds, as resources and programs hold them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "windows.h"

namespace headless
{
// A class or text in a template: a number or a text.
struct TemplateName
{
    WORD number = 0;
    std::u16string text;

    bool IsEmpty() const { return number == 0 && text.empty(); }
};

struct TemplateControl
{
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT rect = {};  // in dialog units, left, top, width, height
    int id = 0;
    TemplateName className;
    TemplateName text;
    std::vector<BYTE> data;
};

struct DialogTemplate
{
    DWORD style = 0;
    DWORD exStyle = 0;
    RECT rect = {};
    TemplateName className;
    std::u16string title;
    bool hasFont = false;
    WORD pointSize = 0;
    std::u16string fontName;
    std::vector<TemplateControl> controls;
};

DialogTemplate ReadTemplate(LPCDLGTEMPLATEW source);
}  // namespace headless
