// The controls of tool elements on screen, one widget per element row, each a view of its
// ElementControl: sync copies the control in, and input goes to the view host.
#pragma once

#include "desk/desk.h"
#include "widgets/flatbutton.h"

#include <QListWidget>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QWidget>

namespace orrery {

class ViewHost;

// The common part: the row it shows, and how it follows the model.
class ElementView {
public:
    ElementView(ViewHost &host, int row) : m_host(host), m_row(row) {}
    virtual ~ElementView() = default;
    virtual QWidget *widget() = 0;
    // Brings the widget up to the control's state.
    virtual void sync(const ElementControl &control);
    int row() const { return m_row; }

protected:
    ViewHost &m_host;
    int m_row;
};

// Text measured with the real fonts, for the consoles.
const TextMeasure &QtTextMeasure();

// Makes the view of a control's kind inside a tool's panel.
ElementView *MakeElementView(ViewHost &host, int row, const ElementControl &control, QWidget *panel);

class LabelView : public QWidget, public ElementView {
public:
    LabelView(ViewHost &host, int row, QWidget *parent);
    QWidget *widget() override { return this; }
    void sync(const ElementControl &control) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    QString m_caption;
    QColor m_fore, m_back;
    bool m_opaque = false;
    int m_alignment = 0;
};

class ButtonView : public FlatButton, public ElementView {
public:
    ButtonView(ViewHost &host, int row, QWidget *parent);
    QWidget *widget() override { return this; }
    void sync(const ElementControl &control) override;
};

class TextView : public QPlainTextEdit, public ElementView {
    Q_OBJECT
public:
    TextView(ViewHost &host, int row, QWidget *parent);
    QWidget *widget() override { return this; }
    void sync(const ElementControl &control) override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void pushText();
    void pushSelection();
    void layOut();
    void updateScrollBar();
    bool m_syncing = false;
    bool m_short = true; // under 800 twips: Enter clicks the tool's button
};

class ListView : public QListWidget, public ElementView {
public:
    ListView(ViewHost &host, int row, QWidget *parent);
    QWidget *widget() override { return this; }
    void sync(const ElementControl &control) override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    std::vector<std::string> m_items;
    bool m_syncing = false;
};

class ImageView : public QWidget, public ElementView {
public:
    ImageView(ViewHost &host, int row, QWidget *parent);
    QWidget *widget() override { return this; }
    void sync(const ElementControl &control) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void load();
    std::string m_file;
    QPixmap m_picture;
    bool m_pressed = false;
};

class QonsoleView : public QWidget, public ElementView {
public:
    QonsoleView(ViewHost &host, int row, QWidget *parent);
    QWidget *widget() override { return this; }
    void sync(const ElementControl &control) override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    std::vector<QonsoleScreenLine> m_lines; // what is painted, as the last sync found it
    bool m_focused = false;
    QColor m_fore, m_back;
};

} // namespace orrery
