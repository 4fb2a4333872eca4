#include "screens/MemoryViewController.h"

#include "fakes/ControlTest.h"

#include <QTest>

namespace {
struct Recorder final : MemoryViewControllerDelegate {
    QStringList heard;
    void memoryViewButtonDoneClicked() override { heard.append(QStringLiteral("done")); }
    void memoryViewButtonUpMouseDown() override { heard.append(QStringLiteral("up pressed")); }
    void memoryViewButtonUpMouseUp() override { heard.append(QStringLiteral("up released")); }
    void memoryViewButtonDownMouseDown() override { heard.append(QStringLiteral("down pressed")); }
    void memoryViewButtonDownMouseUp() override { heard.append(QStringLiteral("down released")); }
};

class MemoryViewControllerTest : public ControlTest {
protected:
    MemoryViewControllerTest()
    {
        editor->setDelegate(&recorder);
        editor->view()->resize(181, 120);
        show(*editor->view());
    }

    Recorder recorder;
    std::unique_ptr<MemoryViewController> editor = std::make_unique<MemoryViewController>();
};
}

TEST_F(MemoryViewControllerTest, reportsWhatIsPressedAndNothingElse)
{
    for (MouseEventButton* button : {editor->buttonUp(), editor->buttonDown()}) {
        QTest::mousePress(button, Qt::LeftButton);
        QTest::mouseRelease(button, Qt::LeftButton);
    }
    QTest::mouseClick(editor->buttonDone(), Qt::LeftButton);
    MouseEventButton stranger;
    editor->mouseEventButtonMouseDown(stranger);
    editor->mouseEventButtonMouseUp(stranger);
    EXPECT_EQ(
        recorder.heard, QStringList({"up pressed", "up released", "down pressed", "down released", "done"}));
    editor->setDelegate(nullptr);
    QTest::mouseClick(editor->buttonDone(), Qt::LeftButton);
    QTest::mouseClick(editor->buttonUp(), Qt::LeftButton);
    EXPECT_EQ(recorder.heard.size(), 5);
}

TEST_F(MemoryViewControllerTest, releasesAHeldButtonWhenItEnds)
{
    QTest::mousePress(editor->buttonDown(), Qt::LeftButton);
    editor.reset();
    EXPECT_EQ(recorder.heard, QStringList({"down pressed", "down released"}));
}
