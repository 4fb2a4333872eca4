#pragma once

#include "ui/MouseEventButton.h"

#include <QPointer>

#include <cstdint>
#include <memory>

class QWidget;

namespace Ui {
class MemoryView;
}

class MemoryViewControllerDelegate {
public:
    virtual void memoryViewButtonDoneClicked() = 0;
    virtual void memoryViewButtonUpMouseDown() = 0;
    virtual void memoryViewButtonUpMouseUp() = 0;
    virtual void memoryViewButtonDownMouseDown() = 0;
    virtual void memoryViewButtonDownMouseUp() = 0;

protected:
    ~MemoryViewControllerDelegate() = default;
};

/// The memory editor: a small panel from which the user drives the desk to a height and stores it as a memory
/// position. It only reports what is pressed; its delegate moves the desk and stores the height.
class MemoryViewController final : public MouseEventButtonDelegate {
public:
    MemoryViewController();
    /// Ends a hold first, so that a moving desk stops.
    ~MemoryViewController();
    MemoryViewController(const MemoryViewController&) = delete;
    MemoryViewController& operator=(const MemoryViewController&) = delete;

    void buttonDoneClicked();
    /// Other buttons than Up and Down are ignored.
    void mouseEventButtonMouseDown(MouseEventButton& button) override;
    void mouseEventButtonMouseUp(MouseEventButton& button) override;

    [[nodiscard]] MemoryViewControllerDelegate* delegate() const { return m_delegate; }
    void setDelegate(MemoryViewControllerDelegate* delegate) { m_delegate = delegate; }
    /// The memory position that is being set: 1, 2 or 3.
    [[nodiscard]] int32_t index() const { return m_index; }
    void setIndex(int32_t index) { m_index = index; }
    /// The panel; null once the widget that it was put into is gone.
    [[nodiscard]] QWidget* view() const { return m_view; }
    [[nodiscard]] HoverButton* buttonDone() const;
    [[nodiscard]] MouseEventButton* buttonUp() const;
    [[nodiscard]] MouseEventButton* buttonDown() const;

private:
    void awakeFromNib();

    MemoryViewControllerDelegate* m_delegate = nullptr;
    int32_t m_index = 0;
    QPointer<QWidget> m_view;
    std::unique_ptr<Ui::MemoryView> m_ui;
};
