// What the tool editor's pages share: the page itself with its step and reload, buttons sized
// to their text, the margins, lists filled again with the author's selection kept, and text
// shown for editing that a reload leaves alone while the model's value stands.
#pragma once

#include "editor/qt/editorcontext.h"

#include <QString>
#include <QStringList>
#include <QWidget>
#include <initializer_list>
#include <string>
#include <string_view>

class QGridLayout;
class QHBoxLayout;
class QLayout;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;

namespace orrery {

struct FindingPlace;

// A page of the tool editor beside the tools and their elements.
class EditorPage : public QWidget {
    Q_OBJECT
public:
    EditorPage(EditorContext context, QWidget *parent);
    // The model has changed (a step here or elsewhere, an undo): shows it again, keeping the
    // author's selection where it still exists.
    virtual void Reload() = 0;
    // Brings the place into view and selects it: a qlob, a variable, a tool's event, a help
    // topic. False when the page holds no such place.
    virtual bool ShowItem(const FindingPlace &) { return false; }

protected:
    ProjectModel &model();
    const EditorContext &context() const { return m_context; }
    // Makes the step through the context and, when it was not refused, shows the model again.
    bool Apply(Outcome outcome);

private:
    EditorContext m_context;
};

// The page's outer layout, with the margins and spacing every page has.
void PageMargins(QLayout *layout);
// The outer layout of a page of two columns, a list on the left and what is picked in it on
// the right, with their shares of the width. Their tops and bottoms line up row by row.
QGridLayout *TwoColumns(QWidget *page, int left, int right);
QPushButton *PageButton(const QString &caption, const char *name);
QLabel *Caption(const QString &text);
// A row of buttons: those on the left, a stretch, those on the right.
QHBoxLayout *ButtonRow(std::initializer_list<QWidget *> left,
                       std::initializer_list<QWidget *> right = {});

// The text of the list's selected item; empty when nothing is selected.
QString SelectedText(const QListWidget *list);
// Fills the list with the texts and selects again the text that was selected, if it is still
// there. The list's signals stay quiet: the page shows the selection itself.
void Refill(QListWidget *list, const QStringList &texts);
// Selects the item of that text, if there is one.
void SelectText(QListWidget *list, const QString &text);
// Puts the cursor at the start of a line of the edit box, from 1, and shows it.
void ShowLine(QPlainTextEdit *edit, int line);

// What an edit box last took from the model, for which item. A reload shows the model's value
// again only when the item or the value has changed, so a step made on another page keeps what
// the author is typing here.
class Shown {
public:
    // True, and remembers them, when they differ from what was shown last.
    bool Changed(std::string_view item, std::string_view value);

private:
    std::string m_item;
    std::string m_value;
    bool m_any = false;
};

} // namespace orrery
