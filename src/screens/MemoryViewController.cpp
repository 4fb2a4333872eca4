#include "screens/MemoryViewController.h"

#include "ui/FormStyle.h"
#include "ui/Palette.h"
#include "ui_MemoryView.h"

MemoryViewController::MemoryViewController()
    : m_view(new QWidget)
    , m_ui(std::make_unique<Ui::MemoryView>())
{
    m_ui->setupUi(m_view);
    applyFormStyle(*m_view);
    awakeFromNib();
}

MemoryViewController::~MemoryViewController()
{
    delete m_view.data();
}

void MemoryViewController::awakeFromNib()
{
    m_ui->textfieldSetFavHeight->setStyleSheet(
        QStringLiteral("border-radius: 4px; background: white; color: %1").arg(zelvoTextColor().name()));
    m_ui->buttonUp->setDelegate(this);
    m_ui->buttonDown->setDelegate(this);
    m_ui->buttonDone->onClicked([this] { buttonDoneClicked(); });
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
