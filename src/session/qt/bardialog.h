// The shared look of the run-time's small windows: a frameless dark panel under a title bar of
// the tool-style pictures, a caption on the bar, and a confirm and a cancel button below.
#pragma once

#include "foundation/paths.h"

#include <QColor>
#include <QDialog>
#include <QListWidget>

class QLabel;

namespace orrery {

class FlatButton;

// The colours of the small windows: near-black panels with a cyan accent.
inline const QColor kBarPanelColour{12, 18, 21};
inline const QColor kBarFieldColour{5, 9, 11};
inline const QColor kBarEdgeColour{31, 74, 80};
inline const QColor kBarAccentColour{53, 208, 186};
inline const QColor kBarTextColour{207, 227, 224};
inline const QColor kBarDimTextColour{111, 140, 138};

class BarDialog : public QDialog {
    Q_OBJECT
public:
    // The bar takes imleft and immid from Res/toolstyle; without them it paints its own.
    BarDialog(const AppPaths &paths, const QString &caption, QWidget *parent = nullptr);

    void SetCaption(const QString &caption);
    QString Caption() const;

protected:
    // The area between the bar and the buttons, for the window's own controls.
    QWidget *Body() const { return m_body; }
    FlatButton *ConfirmButton() const { return m_confirm; }
    FlatButton *CancelButton() const { return m_cancel; }

    // ARButton1 runs Confirm, ARButton2 runs Cancel; Escape rejects.
    virtual void Confirm() { accept(); }
    virtual void Cancel() { reject(); }

    void paintEvent(QPaintEvent *event) override;

private:
    QLabel *m_caption;
    QWidget *m_body;
    FlatButton *m_confirm;
    FlatButton *m_cancel;
};

// A list that says so, in dim text, while it holds nothing.
class HintList : public QListWidget {
public:
    explicit HintList(const QString &hint, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_hint;
};

} // namespace orrery
