#include "screens/SetupViewController.h"

#include "data/AppProperties.h"
#include "data/DecimalFormatter.h"
#include "data/Helper.h"
#include "data/Saturation.h"
#include "desk/HubAccess.h"
#include "desk/PositionListener.h"
#include "platform/Bundle.h"
#include "platform/Workspace.h"
#include "screens/EntryNumber.h"
#include "screens/GoalSentence.h"
#include "screens/SetupView.h"
#include "ui/FontAndTextHandler.h"
#include "ui/HyperLinkTextField.h"
#include "ui/NumberEntryValidator.h"
#include "ui/Palette.h"
#include "ui/TextUtilities.h"
#include "ui_SetupView.h"

#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>
#include <utility>

namespace {
constexpr int32_t kCalorieGoal = 1;
constexpr int32_t kTimeGoal = 2;
constexpr int32_t kMiddleStep = 2;
constexpr double kMostWeight = 999;
constexpr double kMostHeight = 2500;
constexpr double kFewestStandUps = 1;
constexpr double kMostStandUps = 6;
constexpr int kUnitsPerMillimetre = 10; // Raw heights are in 0.1 mm.
constexpr double kUnitsPerCentimetre = 100;
constexpr double kRoomForUnit = 4; // Number and unit together stand in the middle of their circle.
constexpr int kRefusalMargin = 2;

AppProperties& properties()
{
    return AppProperties::instance();
}

/// Raw, 0.1 mm; 0 without a desk.
int32_t deskPosition()
{
    return device() ? device()->position() : 0;
}

QString localized(const QString& key)
{
    return Bundle::main().localizedString(key);
}

/// The number without its fraction.
QString truncated(double number)
{
    return QString::number(saturated<int32_t>(number));
}

void setLabelColor(QLabel& label, const QColor& color)
{
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, color);
    label.setPalette(palette);
}

/// A field that begins with a text its validator refuses would from then on take any text. What the settings
/// hold is therefore shown unasked.
void fill(QLineEdit& field, const QString& text)
{
    const QValidator* const validator = field.validator();
    field.setValidator(nullptr);
    field.setText(text);
    field.setValidator(validator);
}

}

SetupViewController::SetupViewController(Workspace& workspace)
    : m_workspace(workspace)
    , m_ui(std::make_unique<Ui::SetupView>())
    , m_memories(*m_ui)
{
}

SetupViewController::~SetupViewController()
{
    for (const auto& listener : m_positionListeners) {
        listener->cutOff();
        if (hub())
            hub()->removeDelegate(listener);
    }
    // A held button stops the desk through this object, which is still whole here.
    delete std::exchange(m_view, nullptr).data();
}

QWidget* SetupViewController::view()
{
    if (!m_view) {
        m_view = new SetupView;
        m_ui->setupUi(m_view);
        applyTypefaceToWrappingLabels(*m_view);
        awakeFromNib();
    }
    return m_view;
}

void SetupViewController::awakeFromNib()
{
    observe();
    setLocalizationText();
    setFont();
    setTextColor();
    setImages();
    connectControls();

    const int32_t mode = properties().activityMode();
    if (mode == kCalorieGoal)
        activityModeCalories();
    else
        activityModeTime();
    showActivityMode(mode); // An unknown mode leaves both tabs inactive and every goal at 0.
    const double goal = properties().activityGoal();
    setIndex(goal == 0
            ? kMiddleStep
            : saturated<int32_t>(m_activityGoalManager.indexFromGoal(saturated<int32_t>(goal), mode)));

    m_ui->labelCalories->setDelegateClick(this);
    m_ui->labelTime->setDelegateClick(this);
    setUpEntryField(*m_ui->textFieldWeight, 0, kMostWeight, false);
    setDefaultWeight();
    m_ui->labelSystemOfUnits->setText(
        localized(properties().isMetric() ? QStringLiteral("Kg") : QStringLiteral("Lbs")));
    // Inches have one decimal, centimetres are whole.
    setUpEntryField(*m_ui->textFieldTableHeight, 0, kMostHeight, !properties().isMetric());
    setDefaultTableHeight();
    setUpEntryField(*m_ui->textFieldStandUpNumber, kFewestStandUps, kMostStandUps, false);
    setDefaultNumberOfStandUps();
    for (GoalCircleView* circle : goalIndicators()) {
        circle->setDelegate(this);
        circle->setVerticalOffset(kRoomForUnit);
    }
    m_memories.awakeFromNib(*this);
    m_ui->labelVersion->setText(QStringLiteral("Ver: %1").arg(properties().bundleVersion()));
    updateGoalLabel();
    setAccessibleTexts();
    setUpRefusal();
}

void SetupViewController::observe()
{
    // Every loading of the form registers anew, and all registrations last as long as this object does.
    m_observations.push_back(
        NotificationCenter::defaultCenter().addObserver(ZelvoController::kDeviceStateDidChange,
            [this](const PostedNotification&) { observerDeviceStateDidChange(); }));
    m_positionListeners.push_back(
        std::make_shared<PositionListener>([this](int32_t height) { positionUpdated(height); }));
    if (hub())
        hub()->addDelegate(m_positionListeners.back());
}

void SetupViewController::setLocalizationText()
{
    m_ui->LabelHeadTitle->setText(localized(QStringLiteral("Setup")));
    m_ui->labelTabelHeight->setText(localized(QStringLiteral("TableHeightHeader")));
    m_ui->labelYourWeight->setText(localized(QStringLiteral("MyWeightIs")));
    m_ui->labelNumberOfSessions->setText(localized(QStringLiteral("StandUpHeader")));
    m_ui->labelCm->setText(Helper::TableHeightUnit());
    m_ui->LabelEachHour->setText(localized(QStringLiteral("EachHour")));
    m_ui->buttonDone->setText(QStringLiteral("   %1").arg(localized(QStringLiteral("DoneButton"))));
    m_ui->labelCalories->setText(localized(QStringLiteral("Calories")));
    m_ui->labelTime->setText(localized(QStringLiteral("Time")));
    m_ui->buttonMemory1->setText(localized(QStringLiteral("Memory1")));
    m_ui->buttonMemory2->setText(localized(QStringLiteral("Memory2")));
    m_ui->buttonMemory3->setText(localized(QStringLiteral("Memory3")));
    m_ui->labelConnection->setText(localized(QStringLiteral("ConnectTable")));
    m_ui->labelVideoLinkInfo->setText(localized(QStringLiteral("InfoLinkButton")));
    m_ui->labelVideoLinkInfo->setHidden(properties().videoUrl().isEmpty());
    m_ui->labelMoreInfo->setText(localized(QStringLiteral("InfoLinkText")));
    m_ui->labelMoreInfo->setHidden(properties().infoUrl().isEmpty());
    // Its picture is all that is drawn; the text is for screen readers.
    m_ui->buttonCloseWithoutSaving->setText(localized(QStringLiteral("AccessCloseWithoutSaving")));
}

void SetupViewController::setAccessibleTexts()
{
    const struct {
        QLineEdit* field;
        const QLabel* heading;
        const QLabel* unit;
    } kFields[] = {{m_ui->textFieldWeight, m_ui->labelYourWeight, m_ui->labelSystemOfUnits},
        {m_ui->textFieldTableHeight, m_ui->labelTabelHeight, m_ui->labelCm},
        {m_ui->textFieldStandUpNumber, m_ui->labelNumberOfSessions, m_ui->LabelEachHour}};
    for (const auto& [field, heading, unit] : kFields) {
        field->setAccessibleName(heading->text());
        field->setAccessibleDescription(unit->text());
    }
    m_ui->slider->setAccessibleName(localized(QStringLiteral("AccessGoalSlider")));
    for (HoverButton* button : m_memories.buttons()) {
        button->setAccessibleDescription(localized(QStringLiteral("AccessSetMemoryHint")));
        button->setToolTip(localized(QStringLiteral("AccessSetMemoryHint")));
    }
    m_ui->buttonCloseWithoutSaving->setToolTip(localized(QStringLiteral("AccessCloseWithoutSaving")));
}

void SetupViewController::setFont()
{
    using Fonts = FontAndTextHandler;
    m_ui->LabelHeadTitle->setFont(Fonts::Roman30());
    m_ui->labelModeTitle->setFont(Fonts::Roman18());
    m_ui->buttonDone->setFont(Fonts::Roman18());
    m_ui->labelCalories->setFont(Fonts::Roman22());
    m_ui->labelTime->setFont(Fonts::Roman22());
    m_ui->labelConnection->setFont(Fonts::Roman20());
    for (QLabel* label : {m_ui->labelGoal, m_ui->labelSystemOfUnits, m_ui->labelTabelHeight,
             m_ui->labelYourWeight, m_ui->labelNumberOfSessions, m_ui->labelCm, m_ui->LabelEachHour})
        label->setFont(Fonts::Roman15());
    m_ui->labelVersion->setFont(Fonts::Roman12());
    for (HoverLink* link : {m_ui->labelVideoLinkInfo, m_ui->labelMoreInfo}) {
        link->setFont(Fonts::Roman12());
        link->setUnderLineText();
    }
    for (QLineEdit* field : {m_ui->textFieldWeight, m_ui->textFieldTableHeight, m_ui->textFieldStandUpNumber})
        field->setFont(Fonts::Bold15());
}

void SetupViewController::setTextColor()
{
    for (const QWidget* part : {m_view.data(), m_ui->bodyContent}) {
        const auto labels = part->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
        for (QLabel* label : labels)
            setLabelColor(*label, zelvoTextColor());
    }
    m_ui->buttonDone->setTextColor(zelvoTextColor());
    for (HoverLink* link : {m_ui->labelVideoLinkInfo, m_ui->labelMoreInfo})
        link->setTextColor(zelvoHoverColor());
}

void SetupViewController::setImages()
{
    m_ui->buttonDone->setBackgroundColor(zelvoButtonDarkBackgroundColor());
    m_ui->buttonCloseWithoutSaving->setImageNamed(QStringLiteral("ButtonClose"));
    m_ui->buttonCloseWithoutSaving->setImagePosition(Button::ImagePosition::Only);
}

void SetupViewController::connectControls()
{
    const auto onClick = [this](const QAbstractButton* button, void (SetupViewController::*action)()) {
        QObject::connect(button, &QAbstractButton::clicked, m_view, [this, action] { (this->*action)(); });
    };
    onClick(m_ui->buttonDone, &SetupViewController::buttonClosedClicked);
    onClick(m_ui->buttonCloseWithoutSaving, &SetupViewController::buttonCloseWithoutSavingClicked);
    onClick(m_ui->labelMoreInfo, &SetupViewController::buttonInfoClicked);
    onClick(m_ui->labelVideoLinkInfo, &SetupViewController::buttonVideoLinkClicked);
    for (HoverButton* button : m_memories.buttons())
        QObject::connect(
            button, &QAbstractButton::clicked, m_view, [this, button] { buttonMemoryClicked(*button); });
    QObject::connect(m_ui->slider, &QSlider::valueChanged, m_view, [this] { sliderMoved(); });
}

void SetupViewController::setUpEntryField(
    BackgroundTextField& field, double minValue, double maxValue, bool acceptComma)
{
    auto* validator = new NumberEntryValidator(&field);
    validator->formatter().setMinValue(minValue);
    validator->formatter().setMaxValue(maxValue);
    validator->formatter().setAcceptComma(acceptComma);
    field.setValidator(validator);
    field.setBackgroundImage(Picture(QStringLiteral("SetupTextField")));
    field.setTextColor(Qt::white);
    field.setInsertionPointColor(Qt::white);
    QObject::connect(&field, &QLineEdit::textEdited, m_view, [this, &field] { controlTextDidChange(field); });
    QObject::connect(
        &field, &QLineEdit::editingFinished, m_view, [this, &field] { controlTextDidEndEditing(field); });
}

/// A line above everything else, so that the screen needs no room for it.
void SetupViewController::setUpRefusal()
{
    m_refusal = new HyperLinkTextField(m_ui->textFieldWeight->parentWidget()); // Which screen readers hear.
    m_refusal->setWordWrap(false);
    m_refusal->setObjectName(QStringLiteral("labelRefusal"));
    m_refusal->setFont(FontAndTextHandler::Roman12()); // Fits between the fields and the tabs.
    setLabelColor(*m_refusal, zelvoHoverColor());
    m_refusal->setBackgroundRole(QPalette::Window);
    m_refusal->setAutoFillBackground(true);
    m_refusal->setMargin(kRefusalMargin);
    m_refusal->hide();
}

bool SetupViewController::isAccepted(const QLineEdit& field)
{
    const auto& validator = dynamic_cast<const NumberEntryValidator&>(*field.validator());
    const QString text = field.text();
    const bool hasDigit = std::any_of(text.cbegin(), text.cend(), [](QChar c) { return !c.isPunct(); });
    return hasDigit && validator.formatter().isPartialStringValid(text);
}

void SetupViewController::refuse(QLineEdit& field)
{
    const auto& formatter = dynamic_cast<const NumberEntryValidator&>(*field.validator()).formatter();
    refill(field);
    updateGoalLabel();
    m_refusal->setText(
        localized(QStringLiteral("EntryRefused"))
            .arg(QString::number(formatter.minValue()), QString::number(formatter.maxValue())));
    m_refusal->adjustSize();
    const int rightmost =
        m_refusal->parentWidget()->width() - m_ui->textFieldWeight->x() - m_refusal->width();
    m_refusal->move(std::min(field.x(), rightmost), field.geometry().bottom() + 1);
    m_refusal->raise();
    m_refusal->show();
    field.setFocus();
    field.selectAll();
}

void SetupViewController::refill(const QLineEdit& field)
{
    if (&field == m_ui->textFieldWeight)
        setDefaultWeight();
    else if (&field == m_ui->textFieldTableHeight)
        setDefaultTableHeight();
    else
        setDefaultNumberOfStandUps();
}

void SetupViewController::buttonClosedClicked()
{
    if (!m_view)
        return;
    // A press by a screen reader takes the focus from no field, so editing may still be going on.
    controlTextDidEndEditing(*m_ui->textFieldWeight);
    controlTextDidEndEditing(*m_ui->textFieldStandUpNumber);
    m_refusal->hide();
    for (QLineEdit* field :
        {m_ui->textFieldWeight, m_ui->textFieldTableHeight, m_ui->textFieldStandUpNumber}) {
        if (!isAccepted(*field))
            return refuse(*field);
    }
    const int32_t mode = currentActivityMode();
    properties().setActivityMode(mode);
    properties().setActivityGoal(m_activityGoalManager.goalFromIndex(m_ui->slider->value(), mode));
    properties().setWeight(Helper::systemUnitToKilo(integerValue(m_ui->textFieldWeight->text())));
    saveTablePositionOffset();
    properties().setNumberOfStandUps(integerValue(m_ui->textFieldStandUpNumber->text()));
    if (m_delegate)
        m_delegate->setupViewButtonCloseClicked();
}

void SetupViewController::buttonCloseWithoutSavingClicked()
{
    if (m_delegate)
        m_delegate->setupViewButtonCloseWithoutSaveClicked();
    dropView();
}

/// The view's own button may be what is being clicked: it goes once that click is over.
void SetupViewController::dropView()
{
    if (!m_view)
        return;
    QWidget* const dropped = std::exchange(m_view, nullptr);
    dropped->hide(); // A held button is released by it.
    dropped->deleteLater();
}

void SetupViewController::buttonInfoClicked()
{
    if (const QUrl url = properties().infoUrl(); !url.isEmpty())
        m_workspace.openUrl(url);
}

void SetupViewController::buttonVideoLinkClicked()
{
    if (const QUrl url = properties().videoUrl(); !url.isEmpty())
        m_workspace.openUrl(url);
}

void SetupViewController::sliderMoved()
{
    if (m_view)
        setGoalIndicatorIndex(m_ui->slider->value());
}

void SetupViewController::clickableLabelClicked(ClickableLabel& label)
{
    if (!m_view || label.active())
        return;
    if (&label == m_ui->labelCalories)
        activityModeCalories();
    else if (&label == m_ui->labelTime)
        activityModeTime();
}

void SetupViewController::goalCircleIndicatorViewClicked(GoalCircleView& circle)
{
    if (!m_view)
        return;
    deactiveteGoalIndicators();
    circle.setActive(true);
    const int32_t goal = integerValue(circle.value().value_or(QString()));
    setSliderIndex(saturated<int32_t>(m_activityGoalManager.indexFromGoal(goal, currentActivityMode())));
}

void SetupViewController::controlTextDidChange(const QLineEdit& field)
{
    if (m_view)
        m_refusal->hide();
    if (m_view && (&field == m_ui->textFieldWeight || &field == m_ui->textFieldStandUpNumber))
        updateGoalLabel();
}

void SetupViewController::controlTextDidEndEditing(const QLineEdit& field)
{
    if (!m_view || (&field != m_ui->textFieldWeight && &field != m_ui->textFieldStandUpNumber))
        return;
    if (field.text().isEmpty())
        refill(field);
    updateGoalLabel();
}

void SetupViewController::positionUpdated(int32_t)
{
    if (m_view)
        setDefaultTableHeight();
}

void SetupViewController::observerDeviceStateDidChange()
{
    if (!m_view)
        return;
    m_memories.updateConnectionLabel();
    // The height of a desk that has left must not stay: saved against no desk it would shift the offset.
    if (!device())
        setDefaultTableHeight();
}

void SetupViewController::setDefaultWeight()
{
    const double weight = properties().weight();
    const double shown = weight > 0 ? weight : properties().weightDefault();
    if (shown != 0)
        fill(*m_ui->textFieldWeight, truncated(Helper::kiloToSystemUnit(shown)));
}

void SetupViewController::setDefaultTableHeight()
{
    const int64_t height = int64_t(deskPosition()) + properties().tablePositionOffset();
    fill(*m_ui->textFieldTableHeight, Helper::formattedTableHeight(double(height / kUnitsPerMillimetre)));
}

void SetupViewController::setDefaultNumberOfStandUps()
{
    const int32_t stored = properties().numberOfStandUps();
    fill(*m_ui->textFieldStandUpNumber,
        stored < 1 ? truncated(properties().numberOfStandUpsDefault()) : QString::number(stored));
}

void SetupViewController::showActivityMode(int32_t mode)
{
    m_ui->labelCalories->setActive(mode == kCalorieGoal);
    m_ui->labelTime->setActive(mode == kTimeGoal);
    const QString unit =
        localized(mode == kCalorieGoal ? QStringLiteral("Calories") : QStringLiteral("Mins"));
    int32_t step = 0;
    for (GoalCircleView* circle : goalIndicators()) {
        circle->setValue(truncated(m_activityGoalManager.goalFromIndex(step++, mode)));
        circle->setTitle(unit);
    }
    m_ui->labelModeTitle->setText(modeTitleFromMode(mode));
    updateGoalLabel();
}

/// The time mode takes the heading under the "Energy" key: the string tables pair them so.
QString SetupViewController::modeTitleFromMode(int32_t mode) const
{
    return localized(
        mode == kTimeGoal ? QStringLiteral("SetupEnergyHeader") : QStringLiteral("SetupCaloriesHeader"));
}

int32_t SetupViewController::currentActivityMode() const
{
    return m_ui->labelTime->active() ? kTimeGoal : kCalorieGoal;
}

void SetupViewController::activityModeCalories()
{
    showActivityMode(kCalorieGoal);
    m_ui->labelCalories->setActive(true);
    setTabLineForCalories();
}

void SetupViewController::activityModeTime()
{
    showActivityMode(kTimeGoal);
    m_ui->labelTime->setActive(true);
    setTabLineForTime();
}

void SetupViewController::setTabLineForCalories()
{
    m_ui->lineTabHorizontal1->hide();
    m_ui->lineTabHorizontal4->show();
}

void SetupViewController::setTabLineForTime()
{
    m_ui->lineTabHorizontal1->show();
    m_ui->lineTabHorizontal4->hide();
}

std::array<GoalCircleView*, 5> SetupViewController::goalIndicators() const
{
    return {m_ui->goalIndicator1, m_ui->goalIndicator2, m_ui->goalIndicator3, m_ui->goalIndicator4,
        m_ui->goalIndicator5};
}

void SetupViewController::deactiveteGoalIndicators()
{
    for (GoalCircleView* circle : goalIndicators())
        circle->setActive(false);
}

void SetupViewController::setIndex(int32_t step)
{
    setGoalIndicatorIndex(step);
    setSliderIndex(step);
}

void SetupViewController::setGoalIndicatorIndex(int32_t step)
{
    deactiveteGoalIndicators();
    const auto circles = goalIndicators();
    if (step >= 0 && step < int32_t(circles.size()))
        circles[size_t(step)]->setActive(true);
    updateGoalLabel();
}

void SetupViewController::setSliderIndex(int32_t step)
{
    {
        const QSignalBlocker blocker(m_ui->slider); // Only the user's moves choose a circle.
        m_ui->slider->setValue(step);
    }
    updateGoalLabel();
}

void SetupViewController::updateGoalLabel()
{
    describeSlider();
    const int32_t mode = currentActivityMode();
    m_ui->labelGoal->setText(
        goalSentence({mode, m_activityGoalManager.goalFromIndex(m_ui->slider->value(), mode),
            Helper::systemUnitToKilo(integerValue(m_ui->textFieldWeight->text())),
            integerValue(m_ui->textFieldStandUpNumber->text())}));
}

/// Screen readers would say the step's number alone.
void SetupViewController::describeSlider()
{
    const GoalCircleView& circle = *goalIndicators()[size_t(m_ui->slider->value())];
    m_ui->slider->setAccessibleDescription(
        circle.value().value_or(QString()) + QLatin1Char(' ') + circle.title().value_or(QString()));
}

/// What the user says the desk's height is, less what the desk says.
void SetupViewController::saveTablePositionOffset()
{
    const double centimetres = Helper::systemUnitToCm(decimalValue(m_ui->textFieldTableHeight->text()));
    properties().setTablePositionOffset(
        saturated<int32_t>(centimetres * kUnitsPerCentimetre - deskPosition()));
}

void SetupViewController::buttonMemoryClicked(HoverButton& button)
{
    if (!m_view)
        return;
    if (isAccepted(*m_ui->textFieldTableHeight))
        saveTablePositionOffset();
    else
        refuse(*m_ui->textFieldTableHeight);
    m_memories.edit(button);
}

void SetupViewController::memoryViewButtonDoneClicked()
{
    if (m_view)
        m_memories.storePosition();
}
