// The project model and its slot finders.
#include "project/model.h"

#include "foundation/text.h"

namespace orrery {

bool IsBlank(std::string_view text) {
    return text.find_first_not_of(' ') == std::string_view::npos;
}

ProjectModel::ProjectModel() : ElementTable(kElementRows + 1) {}

int FreeCustomServerSlot(const ProjectModel &m) { return FirstFreeSlot(m.CustomServerTable, 500); }
int FreeQlobSlot(const ProjectModel &m) { return FirstFreeSlot(m.QlobTable, 199); }
int FreeDynamicSlot(const ProjectModel &m) { return FirstFreeSlot(m.DynamicTable, 99); }
int FreeQuantumLockSlot(const ProjectModel &m) { return FirstFreeSlot(m.QuantumLockTable, 99); }
int FreeHelpSlot(const ProjectModel &m) { return FirstFreeSlot(m.HelpTable, 99); }
int FreeToolSubSlot(const ProjectModel &m) { return FirstFreeSlot(m.ToolSubTable, 299); }
int FreeServiceSlot(const ProjectModel &m) { return FirstFreeSlot(m.ServiceTable, 199); }
int FirstFreeVariable(const ProjectModel &m) { return FirstFreeSlot(m.VariableTable, 2000); }
int FreeToolNameSlot(const ProjectModel &m) { return FirstFreeSlot(m.ToolNameTable, 99); }

bool IsElementGap(const ProjectModel &model, int row) {
    for (int r = row; r <= row + 2; ++r)
        if (r <= kElementRows && !IsBlank(model.Element(r)[kNameColumn])) return false;
    return true;
}

int FindElementRow(const ProjectModel &model, std::string_view nameForm, RowWalk walk) {
    if (walk == RowWalk::WholeTable && nameForm.empty()) return 0;
    for (int row = 1; row <= kElementRows; ++row) {
        if (walk == RowWalk::UpToGap && IsElementGap(model, row)) return 0;
        if (NormText(model.Element(row)[kNameColumn]) == nameForm) return row;
    }
    return 0;
}

int FindQlob(const ProjectModel &model, std::string_view name) {
    const std::string wanted = NormText(name);
    if (wanted.empty()) return 0;
    for (int slot = 1; slot <= decltype(model.QlobTable)::kSize; ++slot)
        if (NormText(model.QlobTable[slot]).starts_with(wanted)) return slot;
    return 0;
}

} // namespace orrery
