// The high-score window.
#include "session/qt/scoredialog.h"

#include "widgets/flatbutton.h"

#include <QVBoxLayout>

namespace orrery {

ScoreDialog::ScoreDialog(const AppPaths &paths, QWidget *parent)
    : BarDialog(paths, tr("High Scores"), parent) {
    auto *list = new HintList(tr("No scores yet"), Body());
    list->setObjectName("List1");
    list->setMinimumHeight(200);
    ConfirmButton()->setText(tr("OK"));
    CancelButton()->setText(tr("Close"));

    auto *column = new QVBoxLayout(Body());
    column->setContentsMargins(18, 16, 18, 8);
    column->addWidget(list);
    Body()->setMinimumWidth(340);
}

} // namespace orrery
