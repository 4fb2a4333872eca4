#pragma once

#include <array>
#include <cstdint>

class QLineEdit;

namespace Ui {
class SetupView;
}

/// The entry fields of the setup screen: the user's weight and the desk's height, both in the user's units,
/// and the stand-ups an hour. Validators keep what is typed within the limits; since accessibility clients
/// write past them, entries are checked once more before they are stored.
class SetupEntries final {
public:
    /// The form is set up later, and may be again; every operation but this needs it.
    explicit SetupEntries(const Ui::SetupView& ui)
        : m_ui(ui)
    {
    }

    /// Fills the fields of a form that was just set up from the settings.
    void awakeFromNib();
    void setDefaultWeight();
    void setDefaultTableHeight(int32_t position); ///< raw, 0.1 mm
    void setDefaultNumberOfStandUps();
    /// Puts the stored value back into an emptied field, except the height's, which the desk's next one
    /// fills.
    void refillIfEmpty(const QLineEdit& field);
    /// Whether the entry may be stored; what the field was filled with may. One that may not gives way to the
    /// stored value, and until the next edit a line beside the field says what it takes.
    bool accept(QLineEdit& field);

    [[nodiscard]] double kilograms() const;
    /// What the user says the desk's height is, less what the desk says, in 0.1 mm.
    [[nodiscard]] int32_t tablePositionOffset() const;
    [[nodiscard]] int32_t numberOfStandUps() const;
    /// Weight, height and stand-ups.
    [[nodiscard]] std::array<QLineEdit*, 3> fields() const;

private:
    void refill(const QLineEdit& field);

    const Ui::SetupView& m_ui;
};
