#include "platform/qt/QtDialogs.h"

#include "platform/Log.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QStandardPaths>

namespace {
/// The window in front; nothing where that is a panel which the user has just dismissed, because it dies in a
/// moment and would take a dialog of its own along.
QWidget* parentOfDialog()
{
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const front = modal ? modal : QApplication::activeWindow();
    return front && front->isVisible() ? front : nullptr;
}

/// A dialog dies with its parent window, also while it runs; the pointer then is null.
template <typename Dialog>
class Modal {
public:
    Modal()
        : m_dialog(new Dialog(parentOfDialog()))
    {
    }
    ~Modal() { delete m_dialog.data(); }
    Q_DISABLE_COPY_MOVE(Modal)

    Dialog* operator->() const { return m_dialog.data(); }
    /// False when the dialog has gone with its window.
    explicit operator bool() const { return !m_dialog.isNull(); }
    bool run(int& result)
    {
        m_dialog->setWindowModality(Qt::ApplicationModal);
        result = m_dialog->exec();
        return bool(*this);
    }

private:
    QPointer<Dialog> m_dialog;
};

QString documentsFolder()
{
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(folder).isDir() ? folder : QDir::homePath();
}

bool mayReplace(const QString& path)
{
    if (!QFileInfo::exists(path))
        return true;
    // The file dialog's own question.
    const QString question =
        QCoreApplication::translate("QFileDialog", "%1 already exists.\nDo you want to replace it?");
    Modal<QMessageBox> box;
    box->setIcon(QMessageBox::Warning);
    box->setTextFormat(Qt::PlainText);
    box->setText(question.arg(QFileInfo(path).fileName()));
    box->setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    int answer = 0;
    return box.run(answer) && answer == QMessageBox::Yes;
}
}

bool QtDialogs::presentError(const Error& error)
{
    // Once is enough: an error that comes again at each pulse must fill neither the screen nor the log. The
    // codes of one cause may differ.
    const QString shown = error.localizedDescription + error.failureReason;
    if (m_shownErrors.contains(shown))
        return false;
    m_shownErrors.insert(shown);
    Log::line(
        QStringLiteral("%1 %2: %3 %4")
            .arg(error.domain, QString::number(error.code), error.localizedDescription, error.failureReason));
    m_waitingErrors.enqueue(error);
    showNextError();
    return false;
}

void QtDialogs::forgetErrors()
{
    // What the user has not read yet would only be said twice.
    if (!m_errorPanel && m_waitingErrors.isEmpty())
        m_shownErrors.clear();
}

/// Nobody waits for the panel: whoever met the error goes on without what it wanted, and the desk stays under
/// control. What comes meanwhile is shown afterwards, so that the cause is read before its consequences.
void QtDialogs::showNextError()
{
    if (m_errorPanel || m_waitingErrors.isEmpty())
        return;
    const Error error = m_waitingErrors.dequeue();
    m_errorPanel = new QMessageBox(QApplication::activeWindow());
    m_errorPanel->setAttribute(Qt::WA_DeleteOnClose);
    m_errorPanel->setIcon(QMessageBox::Critical);
    m_errorPanel->setTextFormat(Qt::PlainText);
    m_errorPanel->setText(error.localizedDescription);
    m_errorPanel->setInformativeText(error.failureReason);
    m_errorPanel->setStandardButtons(QMessageBox::Ok);
    // Later, because the panel may be going with the window that it belongs to.
    QObject::connect(
        m_errorPanel, &QObject::destroyed, &m_context, [this] { showNextError(); }, Qt::QueuedConnection);
    m_errorPanel->show();
}

int QtDialogs::runAlert(
    const QString& messageText, const QString& informativeText, const QStringList& buttons)
{
    const int lastButton = kFirstButton + int(buttons.size()) - 1;
    Modal<QMessageBox> box;
    box->setIcon(QMessageBox::Warning);
    box->setTextFormat(Qt::PlainText);
    box->setText(messageText);
    box->setInformativeText(informativeText);
    QList<QAbstractButton*> added;
    for (const QString& text : buttons) {
        QString label = text;
        label.replace(QLatin1Char('&'), QLatin1String("&&"));
        const bool isLast = added.size() + 1 == buttons.size();
        added.append(box->addButton(label, isLast ? QMessageBox::RejectRole : QMessageBox::AcceptRole));
    }
    box->setDefaultButton(qobject_cast<QPushButton*>(added.first()));
    int result = 0;
    if (!box.run(result) || !box->clickedButton())
        return lastButton;
    return kFirstButton + int(added.indexOf(box->clickedButton()));
}

std::optional<QString> QtDialogs::runSavePanel(const QString& proposedFileName)
{
    const QString suffix = QFileInfo(proposedFileName).suffix();

    Modal<QFileDialog> dialog;
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    if (!suffix.isEmpty())
        dialog->setNameFilter(QStringLiteral("*.%1").arg(suffix));
    dialog->setDirectory(documentsFolder());
    dialog->selectFile(proposedFileName);
    int result = 0;
    while (dialog.run(result) && result == QDialog::Accepted && !dialog->selectedFiles().isEmpty()) {
        const QString path = dialog->selectedFiles().constFirst();
        if (suffix.isEmpty() || QFileInfo(path).suffix().compare(suffix, Qt::CaseInsensitive) == 0)
            return path;
        // The dialog asked about a name without the ending.
        const QString withSuffix = path + QLatin1Char('.') + suffix;
        if (mayReplace(withSuffix))
            return withSuffix;
        if (!dialog)
            break;
        dialog->selectFile(withSuffix);
    }
    return std::nullopt;
}
