#pragma once

#include "desk/DeskHold.h"
#include "screens/MemoryViewController.h"

#include <array>
#include <memory>

class MemoryCard;

namespace Ui {
class SetupView;
}

/// The row of memories on the setup screen: three cards with what is stored, the memory editor that takes the
/// place of the one that was clicked, and the notice that asks for a desk, without which none can be set.
class MemoryRow final {
public:
    /// The form is set up later, and may be again; every operation but this needs it.
    explicit MemoryRow(const Ui::SetupView& ui)
        : m_ui(ui)
    {
    }

    /// For a form that was just set up.
    /// @param delegate hears of the editor's buttons and calls the operations below
    void awakeFromNib(MemoryViewControllerDelegate& delegate);
    void updateConnectionLabel();
    /// The stored heights, after one of them or the table's offset has changed.
    void showStoredHeights();
    /// The desk's height, in the editor.
    void showLiveHeight();
    /// Opens the editor in the place of the card, whose property "tag" is the position's number.
    void edit(MemoryCard& card);
    /// Closes the editor and stores the desk's raw height as the position that was edited.
    void storePosition();
    /// Closes the editor; what was stored before stays.
    void cancel();
    void moveUp();
    void moveDown();
    void stop() { m_deskHold.end(); }

    [[nodiscard]] std::array<MemoryCard*, 3> cards() const;
    /// Null before a form was set up.
    [[nodiscard]] MemoryViewController* editor() const { return m_editor.get(); }

private:
    void removeMemoryView();

    const Ui::SetupView& m_ui;
    DeskHold m_deskHold; // Before the editor, whose end lets go of its buttons.
    std::unique_ptr<MemoryViewController> m_editor;
};
