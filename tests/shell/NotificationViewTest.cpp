#include "shell/NotificationView.h"

#include "fakes/ControlTest.h"

#include <QCursor>
#include <QPushButton>
#include <QTest>

namespace {
struct Recorder final : NotificationViewDelegate {
    QStringList heard;
    void notificationViewMouseEntered() override { heard.append(QStringLiteral("entered")); }
    void notificationViewMouseExited() override { heard.append(QStringLiteral("exited")); }
};

class NotificationViewTest : public ControlTest {
protected:
    NotificationViewTest()
    {
        m_view.setGeometry(20, 20, 100, 80);
        m_button.setGeometry(40, 30, 40, 20);
        m_view.setDelegate(&m_recorder);
        m_window.resize(200, 200);
        show(m_window);
    }

    Recorder m_recorder;
    QWidget m_window;
    NotificationView m_view {&m_window};
    QPushButton m_button {&m_view};
};
}

TEST_F(NotificationViewTest, oneVisitOfThePointerIsOneEntryAndOneExit)
{
    // Over the view, over its button and back, out: as a window system tells it.
    for (const QPoint point : {QPoint(5, 5), QPoint(30, 30), QPoint(70, 60), QPoint(30, 30)})
        QTest::mouseMove(m_window.windowHandle(), point);
    EXPECT_EQ(m_recorder.heard, QStringList({"entered"}));
    QTest::mouseMove(m_window.windowHandle(), {190, 190});
    EXPECT_EQ(m_recorder.heard, QStringList({"entered", "exited"}));

    m_view.mouseExited({-1, -1}); // Not inside: nothing to leave.
    m_view.mouseEntered({100, 200}); // Not inside either.
    m_view.mouseEntered({10, 10});
    m_view.mouseEntered({10, 10});
    m_view.mouseExited({50, 40}); // Still over it.
    EXPECT_EQ(m_recorder.heard, QStringList({"entered", "exited", "entered"}));
}

TEST_F(NotificationViewTest, aPointerThatWasLastSeenInsideHasLeftAllTheSame)
{
    enter(m_view);
    QCursor::setPos(m_view.mapToGlobal(m_view.rect().center()));
    leave(m_view);
    EXPECT_EQ(m_recorder.heard, QStringList({"entered", "exited"}));
}

TEST_F(NotificationViewTest, aViewThatDisappearsUnderThePointerIsNotVisitedAnyMore)
{
    enter(m_view);
    m_window.hide();
    show(m_window);
    enter(m_view);
    EXPECT_EQ(m_recorder.heard, QStringList({"entered", "entered"}));
}
