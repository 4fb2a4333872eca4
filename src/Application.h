#pragma once

#include <QApplication>

#include <functional>
#include <utility>

/// An application that ends when the session's end tells it to. Qt itself would close each window first, as
/// if the user had, and stay where one stays.
class Application final : public QApplication {
public:
    using QApplication::QApplication;
    void onQuit(std::function<void()> callback) { m_quit = std::move(callback); }
    void onPaletteChange(std::function<void()> callback) { m_paletteChange = std::move(callback); }

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ApplicationPaletteChange && m_paletteChange)
            m_paletteChange();
        if (event->type() != QEvent::Quit || !m_quit)
            return QApplication::event(event);
        m_quit();
        return true;
    }

private:
    std::function<void()> m_quit;
    std::function<void()> m_paletteChange;
};
