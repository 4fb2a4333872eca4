#include "desk/AdoptedDesk.h"

#include "desk/DeskHold.h"
#include "desk/DeskStory.h"

TEST(AdoptedDesk, tellsHeightsOfTheHubThatIs)
{
    DeskStory story;
    auto& properties = AppProperties::instance();
    properties.setTablePositionOffset(-6205);
    EXPECT_EQ(deskHeightMillimetres(900), -530);
    story.play("2");
    properties.setZelvoController({std::shared_ptr<void>(), &*story.hub});
    auto observation = observeDeskPosition([&story](int32_t height) { story.note(QString::number(height)); });
    story.play("height=1234 4");
    EXPECT_EQ(isDeskActive() ? deskPosition() : 0, 1234);
    observation.reset();
    story.play("height=1300 6");
    EXPECT_EQ(story.heard(), "2.2 1234");
    DeskHold hold;
    EXPECT_EQ(hold.begin(), story.hub->device().get());
    for (int i = 0; i < 2; ++i)
        hold.end();
    EXPECT_EQ(story.wire.filter("stop").size(), 1) << "of a hold that has ended nothing is stopped";
    properties.setZelvoController(nullptr);
}
