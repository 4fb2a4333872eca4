#include "screens/MemoryViewController.h"

#include "platform/Bundle.h"
#include "ui/FontAndTextHandler.h"
#include "ui/Palette.h"
#include "ui/TextUtilities.h"
#include "ui_MemoryView.h"

MemoryViewController::MemoryViewController()
    : m_view(new QWidget)
    , m_ui(std::make_unique<Ui::MemoryView>())
{
    m_ui->setupUi(m_view);
    applyTypefaceToWrappingLabels(*m_view);
    awakeFromNib();
}

MemoryViewController::~MemoryViewController()
{
    delete m_view.data();
}

void MemoryViewController::awakeFromNib()
{
    setLocalizationText();
    m_ui->buttonUp->setDelegate(this);
    m_ui->buttonDown->setDelegate(this);
    QObject::connect(m_ui->buttonDone, &HoverButton::clicked, m_view, [this] { buttonDoneClicked(); });
    for (HoverButton* button : {m_ui->buttonDone, static_cast<HoverButton*>(m_ui->buttonUp),
             static_cast<HoverButton*>(m_ui->buttonDown)}) {
        button->setBackgroundColor(Qt::white);
        button->setFont(FontAndTextHandler::Light12());
    }
    QPalette palette = m_ui->textfieldSetFavHeight->palette();
    palette.setColor(QPalette::WindowText, zelvoTextColor());
    m_ui->textfieldSetFavHeight->setPalette(palette);
    m_ui->textfieldSetFavHeight->setFont(FontAndTextHandler::Light11());
}

void MemoryViewController::setLocalizationText()
{
    const auto localized = [](const QString& key) { return Bundle::main().localizedString(key); };
    m_ui->textfieldSetFavHeight->setText(localized(QStringLiteral("MemoryInstruction")));
    m_ui->buttonUp->setText(localized(QStringLiteral("UpButton")));
    m_ui->buttonDown->setText(localized(QStringLiteral("DownButton")));
    m_ui->buttonDone->setText(localized(QStringLiteral("DoneButton")));
    m_ui->buttonUp->setAccessibleDescription(localized(QStringLiteral("AccessMoveUpHint")));
    m_ui->buttonDown->setAccessibleDescription(localized(QStringLiteral("AccessMoveDownHint")));
    m_ui->buttonDone->setAccessibleDescription(localized(QStringLiteral("AccessSetMemoryHint")));
}

void MemoryViewController::buttonDoneClicked()
{
    if (m_delegate)
        m_delegate->memoryViewButtonDoneClicked();
}

void MemoryViewController::mouseEventButtonMouseDown(MouseEventButton& button)
{
    if (!m_delegate)
        return;
    if (&button == m_ui->buttonUp)
        m_delegate->memoryViewButtonUpMouseDown();
    else if (&button == m_ui->buttonDown)
        m_delegate->memoryViewButtonDownMouseDown();
}

void MemoryViewController::mouseEventButtonMouseUp(MouseEventButton& button)
{
    if (!m_delegate)
        return;
    if (&button == m_ui->buttonUp)
        m_delegate->memoryViewButtonUpMouseUp();
    else if (&button == m_ui->buttonDown)
        m_delegate->memoryViewButtonDownMouseUp();
}

HoverButton* MemoryViewController::buttonDone() const
{
    return m_ui->buttonDone;
}

MouseEventButton* MemoryViewController::buttonUp() const
{
    return m_ui->buttonUp;
}

MouseEventButton* MemoryViewController::buttonDown() const
{
    return m_ui->buttonDown;
}
