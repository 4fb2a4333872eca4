#include "screens/SetupEntries.h"

#include "data/AppProperties.h"
#include "data/Helper.h"
#include "data/Saturation.h"
#include "desk/AdoptedDesk.h"
#include "screens/EntryNumber.h"
#include "ui/NumberEntryValidator.h"
#include "ui/Palette.h"
#include "ui_SetupView.h"

#include <QSignalBlocker>

#include <algorithm>

namespace {
constexpr double kUnitsPerCentimetre = 100; // Raw heights are in 0.1 mm.
constexpr const char* kFilled = "filled"; // A field's property: the text that it was last filled with.

AppProperties& properties()
{
    return AppProperties::instance();
}

/// The number without its fraction.
QString truncated(double number)
{
    return QString::number(saturated<int32_t>(number));
}

/// The limits and characters of an entry, as its validator knows them.
const DecimalFormatter& formatter(const QLineEdit& field)
{
    return dynamic_cast<const NumberEntryValidator&>(*field.validator()).formatter();
}

/// The settings may hold more than an entry may say: what the user has left as it was filled in is no entry.
bool isAccepted(const QLineEdit& field)
{
    const QString text = field.text();
    const bool hasDigit = std::any_of(text.cbegin(), text.cend(), [](QChar c) { return !c.isPunct(); });
    return hasDigit
        && (text == field.property(kFilled).toString() || formatter(field).isPartialStringValid(text));
}

/// A field that begins with a text its validator refuses would from then on take any text. What the settings
/// hold is therefore shown unasked. No edit, so nobody hears of it.
void fill(QLineEdit& field, const QString& text)
{
    const QSignalBlocker blocker(field);
    const QValidator* const validator = field.validator();
    field.setValidator(nullptr);
    field.setText(text);
    field.setValidator(validator);
    field.setProperty(kFilled, text);
}
}

void SetupEntries::awakeFromNib()
{
    const bool isMetric = properties().isMetric();
    m_ui.labelSystemOfUnits->setText(isMetric ? qtTrId("Kg") : qtTrId("Lbs"));
    m_ui.labelCm->setText(Helper::TableHeightUnit());
    const struct {
        BackgroundTextField* field;
        const QLabel* unit;
        double minValue;
        double maxValue;
        bool acceptComma; // Inches have one decimal, centimetres are whole.
    } kEntries[] = {{m_ui.textFieldWeight, m_ui.labelSystemOfUnits, 0, 999, false},
        {m_ui.textFieldTableHeight, m_ui.labelCm, 0, 2500, !isMetric},
        {m_ui.textFieldStandUpNumber, m_ui.LabelEachHour, 1, 6, false}};
    for (const auto& [field, unit, minValue, maxValue, acceptComma] : kEntries) {
        auto* validator = new NumberEntryValidator(field);
        validator->formatter().setMinValue(minValue);
        validator->formatter().setMaxValue(maxValue);
        validator->formatter().setAcceptComma(acceptComma);
        field->setValidator(validator);
        field->setBackgroundImage(Picture(QStringLiteral("SetupTextField")));
        field->setTextColor(zelvoFieldTextColor());
        field->setInsertionPointColor(zelvoFieldTextColor());
        field->setAccessibleDescription(unit->text());
        refill(*field);
        QObject::connect(field, &QLineEdit::textChanged, m_ui.labelRefusal, &QWidget::hide);
    }
}

void SetupEntries::setDefaultWeight()
{
    const double weight = properties().weight();
    const double shown = weight > 0 ? weight : properties().weightDefault();
    if (shown != 0)
        fill(*m_ui.textFieldWeight, truncated(Helper::kiloToSystemUnit(shown)));
}

void SetupEntries::setDefaultTableHeight(int32_t position)
{
    fill(*m_ui.textFieldTableHeight,
        Helper::formattedTableHeight(double(AdoptedDesk::heightMillimetres(position))));
}

void SetupEntries::setDefaultNumberOfStandUps()
{
    const int32_t stored = properties().numberOfStandUps();
    fill(*m_ui.textFieldStandUpNumber,
        stored < 1 ? truncated(properties().numberOfStandUpsDefault()) : QString::number(stored));
}

void SetupEntries::refill(const QLineEdit& field)
{
    if (&field == m_ui.textFieldWeight)
        setDefaultWeight();
    else if (&field == m_ui.textFieldTableHeight)
        setDefaultTableHeight(AdoptedDesk::position());
    else
        setDefaultNumberOfStandUps();
}

void SetupEntries::refillIfEmpty(const QLineEdit& field)
{
    if (field.text().isEmpty() && &field != m_ui.textFieldTableHeight)
        refill(field);
}

bool SetupEntries::accept(QLineEdit& field)
{
    m_ui.labelRefusal->hide();
    if (isAccepted(field))
        return true;
    refill(field);
    m_ui.labelRefusal->setText(
        qtTrId("EntryRefused")
            .arg(QString::number(formatter(field).minValue()), QString::number(formatter(field).maxValue())));
    m_ui.labelRefusal->adjustSize();
    const int rightmost =
        m_ui.labelRefusal->parentWidget()->width() - m_ui.textFieldWeight->x() - m_ui.labelRefusal->width();
    m_ui.labelRefusal->move(std::min(field.x(), rightmost), field.geometry().bottom() + 1);
    m_ui.labelRefusal->show();
    field.setFocus();
    field.selectAll();
    return false;
}

double SetupEntries::kilograms() const
{
    return Helper::systemUnitToKilo(integerValue(m_ui.textFieldWeight->text()));
}

int32_t SetupEntries::tablePositionOffset() const
{
    const double centimetres = Helper::systemUnitToCm(decimalValue(m_ui.textFieldTableHeight->text()));
    return saturated<int32_t>(centimetres * kUnitsPerCentimetre - AdoptedDesk::position());
}

int32_t SetupEntries::numberOfStandUps() const
{
    return integerValue(m_ui.textFieldStandUpNumber->text());
}

std::array<QLineEdit*, 3> SetupEntries::fields() const
{
    return {m_ui.textFieldWeight, m_ui.textFieldTableHeight, m_ui.textFieldStandUpNumber};
}
