#include "shell/TestWindowController.h"

#include "desk/AdoptedDesk.h"
#include "platform/simulated/SimulatedHidManager.h"
#include "shell/MenuletController.h"
#include "shell/Notification.h"
#include "ui/FontAndTextHandler.h"
#include "ui/PanelWindow.h"
#include "ui/WindowPlacement.h"
#include "ui_TestWindow.h"

#include <QFontDatabase>

#include <utility>

namespace {
constexpr double kRefreshSeconds = 0.5;
constexpr qsizetype kBytesPerLine = 16;
constexpr size_t kShortAnswerBytes = 5;

QString hexDump(const std::array<uint8_t, 64>& report)
{
    QStringList lines;
    QStringList line;
    for (const uint8_t byte : report) {
        line.append(QStringLiteral("%1").arg(byte, 2, 16, QLatin1Char('0')).toUpper());
        if (line.size() == kBytesPerLine) {
            lines.append(line.join(u' '));
            line.clear();
        }
    }
    return lines.join(u'\n');
}
}

TestWindowController::TestWindowController(MenuletController& menulet, SimulatedHidManager* simulated)
    : m_menulet(menulet)
    , m_simulated(simulated)
    , m_window(std::make_unique<PanelWindow>(Qt::Window))
    , m_ui(std::make_unique<Ui::TestWindow>())
{
    m_window->setFont(FontAndTextHandler::Roman12());
    m_ui->setupUi(m_window.get());
    m_ui->labelReport->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_window->setOpensUnfocused();
    m_window->onWillClose([this] { invalidate(m_valuesTimer); });
    connectMovement();
    connectReminders();
    m_ui->groupSimulation->setVisible(m_simulated != nullptr);
    if (m_simulated) {
        connectSimulation();
        connectFaults();
    }
    updateValues();
}

TestWindowController::~TestWindowController()
{
    m_window->onWillClose({});
}

void TestWindowController::showWindow()
{
    invalidate(m_valuesTimer);
    m_valuesTimer =
        m_timers.schedule(kRefreshSeconds, RunLoop::Repeat::Yes, [this](Timer&) { updateValues(); });
    m_window->comeToFront(WindowPlacement::moveToCentre);
}

QWidget& TestWindowController::window() const
{
    return *m_window;
}

void TestWindowController::updateValues()
{
    const ZelvoHIDDevice* const desk = AdoptedDesk::device();
    const QString none = QStringLiteral("no desk");
    const auto status = desk ? desk->lastStatusReport() : std::array<uint8_t, 64> {};
    const int statusWord = status[2] | status[3] << 8;
    m_ui->labelHeight->setText(desk ? QString::number(desk->position()) : none);
    m_ui->labelState->setText(desk ? QString::number(desk->positionState()) : none);
    m_ui->labelStatusWord->setText(
        desk ? QStringLiteral("0x%1").arg(statusWord, 4, 16, QLatin1Char('0')) : none);
    m_ui->labelReport->setText(hexDump(status));
}

void TestWindowController::connectMovement()
{
    m_heights = {{m_ui->buttonHeight0, 0}, {m_ui->buttonHeight1000, 1000}, {m_ui->buttonHeight2500, 2500},
        {m_ui->buttonHeight4800, 4800}, {m_ui->buttonHeight6500, 6500}};
    for (MouseEventButton* button : m_window->findChildren<MouseEventButton*>()) {
        button->setDelegate(this);
        button->setBackgroundRole(QPalette::Base); // Apart from those that are clicked.
    }
    onClicked(m_ui->buttonUpOnce, [] {
        if (AdoptedDesk::hub())
            AdoptedDesk::hub()->moveDeviceUp();
    });
    onClicked(m_ui->buttonDownOnce, [] {
        if (AdoptedDesk::hub())
            AdoptedDesk::hub()->moveDeviceDown();
    });
}

void TestWindowController::connectReminders()
{
    const auto remind = [this](int32_t position) {
        m_menulet.showNotification(std::make_shared<Notification>(position));
    };
    onClicked(m_ui->buttonRemindUnknown, [remind] { remind(0); });
    onClicked(m_ui->buttonRemindStand, [remind] { remind(1); });
    onClicked(m_ui->buttonRemindSit, [remind] { remind(2); });
}

void TestWindowController::connectSimulation()
{
    using Kind = DeskModel::ErrorKind;
    onClicked(m_ui->buttonPlug, [this] { m_simulated->plug(); });
    onClicked(m_ui->buttonUnplug, [this] { m_simulated->unplug(); });
    const auto setError = [this](Kind kind) {
        return [this, kind](bool on) { m_simulated->desk().setError(kind, on); };
    };
    onToggled(m_ui->checkPositionLost, setError(Kind::PositionLost));
    onToggled(m_ui->checkOverloadUp, setError(Kind::OverloadUp));
    onToggled(m_ui->checkOverloadDown, setError(Kind::OverloadDown));
    onClicked(m_ui->buttonAddCode, [this] {
        const bool added = m_simulated->desk().addErrorCode(uint8_t(m_ui->spinErrorCode->value()));
        m_ui->buttonAddCode->setEnabled(added); // The list holds six.
    });
    onClicked(m_ui->buttonClearErrors, [this] {
        m_simulated->desk().clearErrors();
        for (QCheckBox* box : {m_ui->checkPositionLost, m_ui->checkOverloadUp, m_ui->checkOverloadDown})
            box->setChecked(false);
        m_ui->buttonAddCode->setEnabled(true);
    });
}

void TestWindowController::connectFaults()
{
    onToggled(m_ui->checkFailingReads, [this](bool on) { m_simulated->desk().faults().failingReads = on; });
    onToggled(m_ui->checkFailingWrites, [this](bool on) { m_simulated->desk().faults().failingWrites = on; });
    onToggled(m_ui->checkNoAnswer, [this](bool on) { m_simulated->desk().faults().noAnswer = on; });
    onToggled(m_ui->checkShortAnswers, [this](bool on) {
        m_simulated->desk().faults().answerLength = on ? std::optional(kShortAnswerBytes) : std::nullopt;
    });
}

void TestWindowController::onToggled(QCheckBox* box, std::function<void(bool)> action)
{
    QObject::connect(box, &QCheckBox::toggled, m_window.get(), std::move(action));
}

void TestWindowController::onClicked(QPushButton* button, std::function<void()> action)
{
    QObject::connect(button, &QPushButton::clicked, m_window.get(), std::move(action));
}

void TestWindowController::mouseEventButtonMouseDown(MouseEventButton& button)
{
    ZelvoHIDDevice* const desk = m_deskHold.begin();
    if (!desk)
        return;
    if (&button == m_ui->buttonUp)
        desk->moveUp();
    else if (&button == m_ui->buttonDown)
        desk->moveDown();
    else
        desk->moveToPosition(m_heights.at(&button));
}

void TestWindowController::mouseEventButtonMouseUp(MouseEventButton&)
{
    m_deskHold.end();
}
