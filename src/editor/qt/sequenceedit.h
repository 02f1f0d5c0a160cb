// A sequence edited as text, one statement a line: what the editor offers until the action
// editor composes sequences from the catalogue.
#pragma once

#include <QPlainTextEdit>
#include <string>
#include <string_view>

namespace orrery {

class SequenceEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit SequenceEdit(QWidget *parent = nullptr);
    // Shows a stored sequence, its back-quoted statements one a line.
    void setSequence(std::string_view stored);
    // The lines as a stored sequence: each statement trimmed and closed by a back-quote.
    std::string sequence() const;
};

} // namespace orrery
