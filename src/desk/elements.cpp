// Applying element properties to controls.
#include "desk/elements.h"

#include "foundation/convert.h"
#include "foundation/text.h"

namespace orrery {

namespace {

std::int32_t Twips(std::string_view value) { return RoundToInt32(Val(value)).value_or(0); }

void SetFlag(bool &flag, std::string_view value) {
    if (auto parsed = ToBoolean(Trim(value))) flag = *parsed;
}

std::string CaptionText(std::string_view value) {
    return ReplaceAll(ReplaceAll(value, "`", "\r\n"), "[empty]", "");
}

void AddListItems(ElementControl &control, std::string_view value) {
    for (std::int16_t i = 1; i < 32767; ++i) {
        const std::string item = FieldBy(value, i, "//");
        if (item.empty() && FieldBy(value, static_cast<std::int16_t>(i + 1), "//").empty()) break;
        if (!item.empty()) control.items.push_back(item);
    }
}

} // namespace

void ApplyProperty(ElementControl &c, std::string_view key, std::string_view value,
                   bool making) {
    const std::string k = NormText(key);
    if (k == "fontname") c.fontName = value;
    else if (k == "fontsize") c.fontSize = Val(value);
    else if (k == "fontbold") SetFlag(c.fontBold, value);
    else if (k == "fontitalic") SetFlag(c.fontItalic, value);
    else if (k == "fontunderline") SetFlag(c.fontUnderline, value);
    else if (k == "forecolor") c.foreColor = Twips(value);
    else if (k == "backcolor") c.backColor = Twips(value);
    else if (k == "backstyle" && c.kind == ElementKind::Label) c.backStyle = static_cast<std::int16_t>(Twips(value));
    else if (k == "left") c.left = Twips(value);
    else if (k == "top") c.top = Twips(value);
    else if (k == "width") c.width = Twips(value);
    else if (k == "height") c.height = Twips(value);
    else if (k == "listitems" && making && c.kind == ElementKind::List) AddListItems(c, value);
    else if (k == "text" && c.kind == ElementKind::Text) c.text = value;
    else if (k == "caption" && (c.kind == ElementKind::Button || c.kind == ElementKind::Label))
        c.caption = CaptionText(value);
    else if (k == "alignment") c.alignment = static_cast<std::int16_t>(Twips(value));
    else if (k == "commandlist" && making && c.kind == ElementKind::Qonsole) c.commandList = value;
    else if (k == "datafield") {
        c.dataField = value;
        if (c.kind == ElementKind::Image) c.picture = value;
    }
}

void ApplyProperties(ElementControl &control, const ElementRow &row, bool making) {
    // Column 2 is the kind with the element's number ("text:4"), not a property: read as one,
    // it would give a text box without its own text its number.
    for (int column = 3; column <= kPropertyColumns; ++column) {
        if (column == kActionColumn) continue;
        const std::string &cell = row[static_cast<std::size_t>(column)];
        if (IsBlank(cell)) continue;
        const std::size_t colon = cell.find(':');
        if (colon == std::string::npos) continue;
        ApplyProperty(control, cell.substr(0, colon), FieldAt(cell, 2), making);
    }
}

void PadLabelCaption(ElementControl &control) {
    if (control.kind != ElementKind::Label || control.backStyle != 1) return;
    if (control.alignment == 0) control.caption.insert(0, " ");
    else if (control.alignment == 1) control.caption += " ";
}

} // namespace orrery
