// The property panel's editors that Qt lacks as they are: a number box that can show values
// that differ, a colour swatch button, and the dialog that edits a list of entries.
#pragma once

#include <QDialog>
#include <QSpinBox>
#include <QToolButton>
#include <optional>
#include <string>
#include <vector>

class QListWidget;
class QPushButton;

namespace orrery {

// A spin box that shows nothing but "(mixed)" while the elements' values differ, and says when
// the author has finished a change: Enter or leaving it after typing, or an arrow step.
class NumberBox : public QSpinBox {
    Q_OBJECT
public:
    explicit NumberBox(QWidget *parent = nullptr);
    // The value shown; nullopt: the values differ.
    void Show(std::optional<int> value);
    bool mixed() const { return m_mixed; }
    // Commits a typed value not yet committed; true when there was one.
    bool Flush();

signals:
    // stepped: an arrow step, which the next step of the same kind may join on the undo stack.
    void committed(int value, bool stepped);

protected:
    QString textFromValue(int value) const override;
    void stepBy(int steps) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool m_mixed = false;
    bool m_edited = false;
};

// A button that shows a stored colour as a swatch and its #RRGGBB; "(mixed)" with none.
class ColourButton : public QToolButton {
    Q_OBJECT
public:
    explicit ColourButton(QWidget *parent = nullptr);
    void Show(std::optional<QColor> colour);
    std::optional<QColor> colour() const { return m_colour; }

private:
    std::optional<QColor> m_colour;
};

// A list's items or a console's commands: add, edit in place, remove, reorder. defaults, when
// not empty, are offered by a button that puts them back.
class ItemListDialog : public QDialog {
    Q_OBJECT
public:
    ItemListDialog(const QString &title, const QString &hint, const std::vector<std::string> &items,
                   std::vector<std::string> defaults, QWidget *parent = nullptr);
    // The entries as they stand, in Windows-1252, blank ones left out.
    std::vector<std::string> items() const;

    void Add();
    void Remove();
    void Move(int by);
    void PutBackDefaults();

private:
    void Fill(const std::vector<std::string> &items);
    void UpdateButtons();

    QListWidget *m_list;
    QPushButton *m_remove;
    QPushButton *m_up;
    QPushButton *m_down;
    std::vector<std::string> m_defaults;
};

} // namespace orrery
