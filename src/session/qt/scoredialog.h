// The high-score window: a list that no part of the program fills. A project that keeps
// scores keeps them in its own variables.
#pragma once

#include "session/qt/bardialog.h"

namespace orrery {

class ScoreDialog : public BarDialog {
    Q_OBJECT
public:
    explicit ScoreDialog(const AppPaths &paths, QWidget *parent = nullptr);
};

} // namespace orrery
