#pragma once

#include "ui/MouseEventButton.h"

#include <QPointer>

#include <array>
#include <cstdint>
#include <memory>

class QLabel;
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
    virtual void memoryViewButtonCancelClicked() = 0;

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

    /// "Store", in the brand colour: it is what the editor was opened for.
    void buttonDoneClicked();
    /// Escape does the same.
    void buttonCancelClicked();
    /// Other buttons than Up and Down are ignored.
    void mouseEventButtonMouseDown(MouseEventButton& button) override;
    void mouseEventButtonMouseUp(MouseEventButton& button) override;

    [[nodiscard]] MemoryViewControllerDelegate* delegate() const { return m_delegate; }
    /// Before anything is pressed.
    void setDelegate(MemoryViewControllerDelegate* delegate) { m_delegate = delegate; }
    /// The memory position that is being set: 1, 2 or 3.
    [[nodiscard]] int32_t index() const { return m_index; }
    void setIndex(int32_t index) { m_index = index; }
    /// The panel; null once the widget that it was put into is gone.
    [[nodiscard]] QWidget* view() const { return m_view; }
    /// Which position is set, and the desk's height, both for its owner to say.
    [[nodiscard]] QLabel* labelPosition() const;
    [[nodiscard]] QLabel* labelHeight() const;
    /// In the order in which the keyboard goes through them: Up, Down, Store and Cancel.
    [[nodiscard]] std::array<HoverButton*, 4> buttons() const;

private:
    void awakeFromNib();

    MemoryViewControllerDelegate* m_delegate = nullptr;
    int32_t m_index = 0;
    QPointer<QWidget> m_view;
    std::unique_ptr<Ui::MemoryView> m_ui;
};
