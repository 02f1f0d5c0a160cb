// Any bytes as a project file, read plain and as a distribution's scrambled file, then written,
// read back and written again. Nothing may crash, hang or misuse memory; odd input may come
// out different from the second writing, so the texts aren't compared.
#include "project/loader.h"
#include "project/saver.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using orrery::ProjectModel;

// A model in the state of a new one. A model only ever grows, so each input needs a fresh
// one, but making one maps, fills and unmaps the large element table, and copying one assigns
// every text of it: under the sanitizers either is most of an input's cost. So the element
// table keeps its rows, each text emptied, and everything else is copied from a new model.
ProjectModel &Fresh(ProjectModel &model) {
    static const auto pristine = [] {
        auto fresh = std::make_unique<ProjectModel>();
        fresh->ElementTable.clear();
        return fresh;
    }();
    std::vector<orrery::ElementRow> rows = std::move(model.ElementTable);
    for (orrery::ElementRow &row : rows)
        for (std::string &text : row) text.clear();
    model = *pristine;
    model.ElementTable = std::move(rows);
    return model;
}

void LoadWriteLoadWrite(std::string_view bytes) {
    static const auto first = std::make_unique<ProjectModel>();
    static const auto second = std::make_unique<ProjectModel>();
    orrery::LoadProjectText(Fresh(*first), "Fuzz", bytes);
    const std::string text = orrery::BuildProjectText(*first);
    orrery::LoadProjectText(Fresh(*second), "Fuzz", text);
    orrery::BuildProjectText(*second);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    LoadWriteLoadWrite(bytes);
    LoadWriteLoadWrite("[revise]\r\n" + std::string(bytes));
    return 0;
}
