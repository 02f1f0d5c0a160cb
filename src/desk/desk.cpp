// The desk model's controls, TLink and toolboxes.
#include "desk/desk.h"

#include "foundation/text.h"

#include <atomic>

namespace orrery {

ElementControl *Desk::Control(int row) {
    return row >= 1 && row <= kElementRows ? m_controls[static_cast<std::size_t>(row)].get() : nullptr;
}

const ElementControl *Desk::Control(int row) const {
    return row >= 1 && row <= kElementRows ? m_controls[static_cast<std::size_t>(row)].get() : nullptr;
}

ElementControl &Desk::LoadControl(int row, std::string tag, ElementKind kind) {
    auto &slot = m_controls.at(static_cast<std::size_t>(row));
    slot = std::make_unique<ElementControl>();
    slot->tag = std::move(tag);
    slot->kind = kind;
    if (static_cast<int>(m_tlink.size()) < kElementRows) m_tlink.push_back(row);
    m_tlinkStamp = NewStamp();
    return *slot;
}

void Desk::UnloadControl(int row) {
    if (row >= 1 && row <= kElementRows) m_controls[static_cast<std::size_t>(row)].reset();
    m_tlinkStamp = NewStamp();
}

std::uint64_t Desk::NewStamp() {
    static std::atomic<std::uint64_t> next{1};
    return next++;
}

std::string Desk::TLinkTag(int index) const {
    if (index < 1 || index > TLinkCount()) return {};
    const ElementControl *control = Control(m_tlink[static_cast<std::size_t>(index - 1)]);
    return control ? control->tag : std::string();
}

std::string Desk::TLinkString(int index, std::string_view tag) const {
    if (index < 1 || index > TLinkCount()) return {};
    const ElementControl *control = Control(m_tlink[static_cast<std::size_t>(index - 1)]);
    if (!control) return {};
    std::string content;
    if (InStr(tag, "text")) content = control->text;
    if (InStr(tag, "list")) content = control->text;
    if (InStr(tag, "label") || InStr(tag, "button")) content = control->caption;
    return content;
}

int Desk::ElIndex(std::string_view name) const {
    const std::string wanted = NormText(name);
    for (int index = 1; index <= TLinkCount(); ++index)
        if (!wanted.empty() && NormText(TLinkTag(index)) == wanted) return index;
    return 0;
}

ElementControl *Desk::TLinkControl(int index) {
    if (index < 1 || index > TLinkCount()) return nullptr;
    return Control(m_tlink[static_cast<std::size_t>(index - 1)]);
}

int Desk::GetToolIndex(std::string_view name) const {
    const std::string wanted = NormText(StripBrackets(name));
    for (int index = 1; index <= kToolboxes; ++index)
        if (!m_toolboxes[static_cast<std::size_t>(index)].tag.empty() &&
            m_toolboxes[static_cast<std::size_t>(index)].tag == wanted)
            return index;
    return kNoTool;
}

} // namespace orrery
