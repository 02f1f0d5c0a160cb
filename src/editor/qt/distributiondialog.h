// "Create Distribution Files...": the game folder built by the packager, its log line by line,
// the fonts the system lacks asked for once each, and the listing for the PAD file, whose
// texts are the project's own and are kept by the next save.
#pragma once

#include "editor/qt/editorcontext.h"

#include <QDialog>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace orrery {

struct DistributionResult;

class DistributionDialog : public QDialog {
    Q_OBJECT
public:
    DistributionDialog(EditorContext context, QString runner, QWidget *parent = nullptr);
    ~DistributionDialog() override;

    // Command1: the fonts asked for, then the build, in a thread of its own, the log following.
    void Start();
    bool building() const;
    // What the last build made, once it has ended.
    const DistributionResult *result() const { return m_result.get(); }

signals:
    void finished(bool done);

protected:
    void reject() override;

private:
    void Say(const QString &line, bool missing = false);
    void ShowListing(bool shown);
    // The font files of the fonts the project needs: the system's, else the author's choice.
    std::map<std::string, std::filesystem::path> AskForFonts();
    void Built();

    struct Work;
    EditorContext m_context;
    QString m_runner;
    QListWidget *m_log;
    QProgressBar *m_progress;
    QCheckBox *m_pad;
    QCheckBox *m_clean;
    QGroupBox *m_listing;
    QLineEdit *m_cost;
    QLineEdit *m_keywords;
    QLineEdit *m_short;
    QPlainTextEdit *m_medium;
    QPlainTextEdit *m_long;
    QLabel *m_summary;
    QPushButton *m_build;
    QPushButton *m_close;
    QPushButton *m_open;
    std::unique_ptr<Work> m_work;
    std::unique_ptr<DistributionResult> m_result;
};

} // namespace orrery
