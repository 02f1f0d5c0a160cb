// The two-colour flat button: a caption in the button's font on its back colour, which turns
// to the second colour while the mouse is over it or it is held down.
#pragma once

#include <QAbstractButton>
#include <QColor>

namespace orrery {

class FlatButton : public QAbstractButton {
    Q_OBJECT
public:
    explicit FlatButton(QWidget *parent = nullptr);
    explicit FlatButton(const QString &caption, QWidget *parent = nullptr);

    void setBackColor(const QColor &colour);
    void setHoverColor(const QColor &colour);
    void setForeColor(const QColor &colour);
    QColor backColor() const { return m_back; }
    QColor hoverColor() const { return m_hover; }
    QColor foreColor() const { return m_fore; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

private:
    QColor m_back{64, 64, 72};
    QColor m_hover{96, 112, 140};
    QColor m_fore{Qt::white};
    bool m_under = false;
};

} // namespace orrery
