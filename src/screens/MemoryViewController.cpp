#include "screens/MemoryViewController.h"

#include "ui/FormStyle.h"
#include "ui_MemoryView.h"

#include <QShortcut>

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
    m_ui->buttonUp->setDelegate(this);
    m_ui->buttonDown->setDelegate(this);
    m_ui->buttonDone->onClicked([this] { buttonDoneClicked(); });
    m_ui->buttonCancel->onClicked([this] { buttonCancelClicked(); });
    auto* const escape = new QShortcut(Qt::Key_Escape, m_view);
    QObject::connect(escape, &QShortcut::activated, m_view, [this] { buttonCancelClicked(); });
}

void MemoryViewController::buttonDoneClicked()
{
    m_delegate->memoryViewButtonDoneClicked();
}

void MemoryViewController::buttonCancelClicked()
{
    m_delegate->memoryViewButtonCancelClicked();
}

void MemoryViewController::mouseEventButtonMouseDown(MouseEventButton& button)
{
    if (&button == m_ui->buttonUp)
        m_delegate->memoryViewButtonUpMouseDown();
    else if (&button == m_ui->buttonDown)
        m_delegate->memoryViewButtonDownMouseDown();
}

void MemoryViewController::mouseEventButtonMouseUp(MouseEventButton& button)
{
    if (&button == m_ui->buttonUp)
        m_delegate->memoryViewButtonUpMouseUp();
    else if (&button == m_ui->buttonDown)
        m_delegate->memoryViewButtonDownMouseUp();
}

QLabel* MemoryViewController::labelPosition() const
{
    return m_ui->labelPosition;
}

QLabel* MemoryViewController::labelHeight() const
{
    return m_ui->labelHeight;
}

std::array<HoverButton*, 4> MemoryViewController::buttons() const
{
    return {m_ui->buttonUp, m_ui->buttonDown, m_ui->buttonDone, m_ui->buttonCancel};
}
