#pragma once

#include "TourWorld.h"

/// A working morning with the real program: each chapter does what a person at the desk would do, prints what
/// the program and the wire show of it, and checks it.
class Tour {
public:
    explicit Tour(TourWorld& world);

    void run();
    [[nodiscard]] int checks() const { return m_checks; }
    [[nodiscard]] int failures() const { return m_failures; }

private:
    void firstStart();
    void completeTheWizard();
    void moveByHand();
    void answerTheReminder();
    void ignoreAndSkip();
    void lunch();
    void pullThePlug();
    void overload();
    void sleepAndWake();
    void lookBack();
    void quit();

    void click(const char* window, const char* control);
    void typeInto(const char* window, const char* field, const char* text);
    void press(QWidget* control);
    void release(QWidget* control);
    [[nodiscard]] QWidget* find(const char* window, const char* control);
    [[nodiscard]] QString shownText(const char* window, const char* label);
    [[nodiscard]] int height() const;
    bool check(bool holds, const QString& what);
    void chapter(const QString& title);
    void say(const QString& text);
    void catchUp();

    TourWorld& m_world;
    size_t m_printedPeriods = 0;
    int m_checks = 0;
    int m_failures = 0;
};
