<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <!-- The program -->
    <message id="AppName">
        <source></source>
        <translation>Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuOpen">
        <source></source>
        <translation>Open Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuHistory">
        <source></source>
        <translation>History</translation>
    </message>
    <message id="ContextMenuSettings">
        <source></source>
        <translation>Settings…</translation>
    </message>
    <message id="ContextMenuExit">
        <source></source>
        <translation>Quit</translation>
    </message>
    <message id="TrayTooltipSitting">
        <source></source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Sitting at %1</translation>
    </message>
    <message id="TrayTooltipStanding">
        <source></source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Standing at %1</translation>
    </message>
    <message id="TrayTooltipPaused">
        <source></source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Paused at %1; nothing is being recorded</translation>
    </message>
    <message id="TrayTooltipError">
        <source></source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>The desk reports an error (%1)</translation>
    </message>
    <message id="TrayTooltipChange" numerus="yes">
        <source></source>
        <extracomment>Follows the posture and a comma in that tooltip; %1: whole minutes</extracomment>
        <translation>
            <numerusform>%1 minute to the next change</numerusform>
            <numerusform>%1 minutes to the next change</numerusform>
        </translation>
    </message>
    <message id="TrayTooltipDisconnected">
        <source></source>
        <extracomment>Tooltip and spoken state of the icon in the system tray</extracomment>
        <translation>No desk connected</translation>
    </message>
    <!-- Ending and errors -->
    <message id="Could not save changes while quitting. Quit anyway?">
        <source></source>
        <translation>Could not save changes while quitting. Quit anyway?</translation>
    </message>
    <message id="Quitting now will lose any changes you have made since the last successful save">
        <source></source>
        <translation>Quitting now will lose any changes you have made since the last successful save</translation>
    </message>
    <message id="Quit anyway">
        <source></source>
        <translation>Quit anyway</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Cancel</translation>
    </message>
    <message id="Expected a folder to store application data, found a file (%1).">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>Expected a folder to store application data, found a file (%1).</translation>
    </message>
    <message id="Failed to initialize the store">
        <source></source>
        <translation>Failed to initialize the store</translation>
    </message>
    <message id="There was an error building up the data file.">
        <source></source>
        <translation>There was an error building up the data file.</translation>
    </message>
    <message id="StoreDamaged">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The record of your activities is damaged. It has been left as it is (%1).</translation>
    </message>
    <message id="StoreDiskFull">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>There is no space left on the disk for the record of your activities (%1).</translation>
    </message>
    <message id="StoreInUse">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>Another program is using the record of your activities (%1).</translation>
    </message>
    <message id="StoreNotWritable">
        <source>The record of your activities is write-protected (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>The record of your activities is write-protected (%1).</translation>
    </message>
    <message id="StoreUnreadable">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The record of your activities cannot be read or written (%1).</translation>
    </message>
    <message id="StoreNotAFile">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>Found something other than a file where your activity record should be (%1).</translation>
    </message>
    <message id="StoreMissingBesideLog">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The record of your activities is missing or empty, but the log of its last changes is still there and has been left as it is (%1-wal).</translation>
    </message>
    <message id="StoreTooNew">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The record of your activities was written by a newer version of this program (%1).</translation>
    </message>
    <message id="StoreForeign">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The file where your activity record should be holds something else (%1).</translation>
    </message>
    <message id="StoreGone">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The record of your activities was removed or replaced while the program was running (%1).</translation>
    </message>
    <message id="StoreGoneReason">
        <source></source>
        <translation>The program continues with the file that is there now, or a new one. It contains the current session.</translation>
    </message>
    <message id="StoreAdviceReplace">
        <source></source>
        <translation>Put a copy from your backup in its place, or move the file away to begin with an empty record.</translation>
    </message>
    <message id="StoreAdviceMakeRoom">
        <source></source>
        <translation>Free up some disk space.</translation>
    </message>
    <message id="StoreAdviceCloseOther">
        <source></source>
        <translation>Close the other program.</translation>
    </message>
    <message id="StoreAdvicePermissions">
        <source></source>
        <translation>Check the permissions of the file and of its folder, and that the disk is healthy.</translation>
    </message>
    <message id="StoreAdviceNewerProgram">
        <source></source>
        <translation>Install the newer version again.</translation>
    </message>
    <message id="StoreNothingRecorded">
        <source></source>
        <extracomment>Stands behind one of the advices above, where the record cannot be opened</extracomment>
        <translation>Nothing is recorded until then; the program keeps trying.</translation>
    </message>
    <message id="StoreKept">
        <source></source>
        <extracomment>Stands behind one of the advices above, where the record cannot be saved</extracomment>
        <translation>Unsaved changes are kept while the program runs and saved as soon as possible.</translation>
    </message>
    <message id="DataFolderError">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>The folder for the program’s data cannot be used: %1</translation>
    </message>
    <message id="DataFolderAdvice">
        <source></source>
        <translation>Nothing is recorded until it can be used. Move whatever is in the way, or allow the program to write there; it keeps trying.</translation>
    </message>
    <message id="SettingsDamaged">
        <source></source>
        <extracomment>%1: path</extracomment>
        <translation>Some lines of the settings file cannot be read (%1). All other settings are kept.</translation>
    </message>
    <message id="SettingsDamagedReason">
        <source></source>
        <extracomment>%1: the lines; %2: path of the copy</extracomment>
        <translation>%1&#10;&#10;The file as it was is kept here: %2</translation>
    </message>
    <!-- Errors that the desk reports -->
    <message id="Error &#10;">
        <source></source>
        <extracomment>Heading of the list of errors; ends with a line break</extracomment>
        <translation>Desk error
</translation>
    </message>
    <message id="PositionLostError">
        <source></source>
        <translation>The desk has lost its position. Hold Down until it has reached the bottom.</translation>
    </message>
    <message id="OverloadUpError">
        <source></source>
        <translation>Overload while going up. Take some weight off the desk.</translation>
    </message>
    <message id="OverloadDownError">
        <source></source>
        <translation>Overload while going down. Check that nothing is in the way.</translation>
    </message>
    <!-- Units -->
    <message id="Centimeter">
        <source></source>
        <translation>cm</translation>
    </message>
    <message id="Inches">
        <source></source>
        <translation>in</translation>
    </message>
    <message id="Kg">
        <source></source>
        <translation>kg</translation>
    </message>
    <message id="Lbs">
        <source></source>
        <translation>lb</translation>
    </message>
    <message id="Min">
        <source></source>
        <translation>min</translation>
    </message>
    <message id="Mins" numerus="yes">
        <source></source>
        <translation>
            <numerusform>minute</numerusform>
            <numerusform>minutes</numerusform>
        </translation>
    </message>
    <message id="Minutes" numerus="yes">
        <source></source>
        <translation>
            <numerusform>minute</numerusform>
            <numerusform>minutes</numerusform>
        </translation>
    </message>
    <message id="Appearance">
        <source>Look</source>
        <extracomment>Beside the choice between a light and a dark look of the windows</extracomment>
        <translation>Look</translation>
    </message>
    <message id="AppearanceLight">
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message id="AppearanceDark">
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
    <message id="AppearanceDesktop">
        <source>As the desktop</source>
        <translation>As the desktop</translation>
    </message>
    <message id="Calories" numerus="yes">
        <source></source>
        <translation>
            <numerusform>Calorie</numerusform>
            <numerusform>Calories</numerusform>
        </translation>
    </message>
    <!-- Buttons -->
    <message id="UpButton">
        <source></source>
        <translation>Up</translation>
    </message>
    <message id="DownButton">
        <source></source>
        <translation>Down</translation>
    </message>
    <message id="Memory1">
        <source></source>
        <translation>Sit</translation>
    </message>
    <message id="Memory2">
        <source></source>
        <translation>Stand</translation>
    </message>
    <message id="Memory3">
        <source></source>
        <translation>Position 3</translation>
    </message>
    <message id="HistoryButton">
        <source></source>
        <translation>History</translation>
    </message>
    <message id="SettingsButton">
        <source></source>
        <translation>Settings</translation>
    </message>
    <message id="SnoozeButton">
        <source></source>
        <translation>Snooze</translation>
    </message>
    <message id="SkipButton">
        <source></source>
        <translation>Skip</translation>
    </message>
    <message id="DoneButton">
        <source></source>
        <translation>Done</translation>
    </message>
    <message id="CloseButton">
        <source></source>
        <translation>Close</translation>
    </message>
    <!-- Main window -->
    <message id="TableHeightLabel">
        <source></source>
        <translation>Desk height</translation>
    </message>
    <message id="OfTodaysGoal">
        <source></source>
        <translation>of today’s goal</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <extracomment>In the main window, under the circle with what was done today</extracomment>
        <translation>Today</translation>
    </message>
    <message id="CurrentSession">
        <source></source>
        <translation>Current session</translation>
    </message>
    <message id="NoDesk">
        <source>No desk found</source>
        <extracomment>In the main window, above ConnectTable</extracomment>
        <translation>No desk found</translation>
    </message>
    <message id="ConnectTable">
        <source></source>
        <translation>Please connect your desk</translation>
    </message>
    <message id="AdapterForbidden">
        <source></source>
        <extracomment>In the main window, above two commands</extracomment>
        <translation>You have no permission to use the adapter. Run these commands in a terminal to allow it:</translation>
    </message>
    <message id="CopyCommands">
        <source>Copy the commands</source>
        <extracomment>Below the two commands of AdapterForbidden</extracomment>
        <translation>Copy the commands</translation>
    </message>
    <message id="CommandsCopied">
        <source>Copied</source>
        <extracomment>Takes the place of CopyCommands</extracomment>
        <translation>Copied</translation>
    </message>
    <!-- Reminder: the headline when the user stands and is asked to sit -->
    <message id="StandingMessage1">
        <source></source>
        <translation>Time to take a seat</translation>
    </message>
    <message id="StandingMessage2">
        <source></source>
        <translation>Well stood! Have a seat.</translation>
    </message>
    <message id="StandingMessage3">
        <source></source>
        <translation>Your legs have earned a rest</translation>
    </message>
    <message id="StandingMessage4">
        <source></source>
        <translation>How about sitting for a while?</translation>
    </message>
    <message id="StandingMessage5">
        <source></source>
        <translation>A good moment to sit down</translation>
    </message>
    <message id="StandingMessage6">
        <source></source>
        <translation>Your chair is ready when you are</translation>
    </message>
    <message id="StandingMessage7">
        <source></source>
        <translation>Let the desk come down with you</translation>
    </message>
    <message id="StandingMessage8">
        <source></source>
        <translation>Ease back into your chair</translation>
    </message>
    <message id="StandingMessage9">
        <source>Nicely done. Now take a rest.</source>
        <translation>Nicely done. Now take a rest.</translation>
    </message>
    <message id="StandingMessage10">
        <source></source>
        <translation>A change of view: sit for a bit</translation>
    </message>
    <!-- Reminder: the headline when the user sits and is asked to stand -->
    <message id="SittingMessage1">
        <source></source>
        <translation>Time to stand up</translation>
    </message>
    <message id="SittingMessage2">
        <source></source>
        <translation>Ready for a stretch?</translation>
    </message>
    <message id="SittingMessage3">
        <source></source>
        <translation>A good moment to get on your feet</translation>
    </message>
    <message id="SittingMessage4">
        <source></source>
        <translation>Your back will enjoy this: stand up</translation>
    </message>
    <message id="SittingMessage5">
        <source></source>
        <translation>Give your legs something to do</translation>
    </message>
    <message id="SittingMessage6">
        <source></source>
        <translation>How about standing for a while?</translation>
    </message>
    <message id="SittingMessage7">
        <source></source>
        <translation>Rise with your desk</translation>
    </message>
    <message id="SittingMessage8">
        <source></source>
        <translation>A new angle on things: stand up</translation>
    </message>
    <message id="SittingMessage9">
        <source></source>
        <translation>A little stand, a clearer head</translation>
    </message>
    <message id="SittingMessage10">
        <source></source>
        <translation>Up you get, in your own time</translation>
    </message>
    <!-- Reminder: the line below the headline -->
    <message id="NotificationDetailMessage1">
        <source></source>
        <extracomment>%1: whole minutes; NotificationDetailMessage2 follows on the same line</extracomment>
        <translation>Stand for %1 min</translation>
    </message>
    <message id="NotificationDetailMessage2" numerus="yes">
        <source>to burn %1 calories.</source>
        <extracomment>%1: whole kilocalories</extracomment>
        <translation>
            <numerusform>to burn %1 calorie.</numerusform>
            <numerusform>to burn %1 calories.</numerusform>
        </translation>
    </message>
    <message id="NotificationSittingmemory">
        <source></source>
        <extracomment>%1: whole minutes</extracomment>
        <translation>Sit for %1 min, then stand again.</translation>
    </message>
    <!-- Setup -->
    <message id="Setup">
        <source>Settings</source>
        <translation>Settings</translation>
    </message>
    <message id="TableHeightHeader">
        <source></source>
        <translation>Desk height now</translation>
    </message>
    <message id="MyWeightIs">
        <source></source>
        <translation>My weight</translation>
    </message>
    <message id="StandUpHeader">
        <source></source>
        <translation>Stand-ups</translation>
    </message>
    <message id="EachHour">
        <source></source>
        <extracomment>Behind the field with the number of stand-ups, 1 to 6; the words must suit 1 too</extracomment>
        <translation>per hour</translation>
    </message>
    <message id="Time">
        <source></source>
        <translation>Time</translation>
    </message>
    <message id="SetupCaloriesHeader">
        <source></source>
        <extracomment>Heading over the goals in calories</extracomment>
        <translation>Calories to burn by standing each day</translation>
    </message>
    <message id="SetupEnergyHeader">
        <source></source>
        <extracomment>Heading over the goals in time</extracomment>
        <translation>Minutes to stand each hour</translation>
    </message>
    <message id="SliderText">
        <source></source>
        <extracomment>%1: minutes in steps of a half</extracomment>
        <translation>That is %1 min on your feet each time you stand up.</translation>
    </message>
    <message id="EntryRefused">
        <source></source>
        <extracomment>%1 and %2: least and greatest value that the field takes</extracomment>
        <translation>Enter a number from %1 to %2. The previous value has been restored.</translation>
    </message>
    <message id="InfoLinkButton">
        <source></source>
        <translation>Watch the video</translation>
    </message>
    <message id="InfoLinkText">
        <source></source>
        <translation>More about standing at work</translation>
    </message>
    <message id="AbsenceUnnoticed">
        <source></source>
        <translation>This desktop does not report when you are away, so absences count as sitting or standing.</translation>
    </message>
    <message id="MemoryInstruction">
        <source></source>
        <extracomment>In the small panel that sets the height of a memory position</extracomment>
        <translation>Hold Up or Down.</translation>
    </message>
    <message id="MemoryHeader">
        <source></source>
        <extracomment>Heading over the memory positions</extracomment>
        <translation>Stored heights</translation>
    </message>
    <message id="MemoryNotSet">
        <source></source>
        <extracomment>In place of a height, for a position that has none</extracomment>
        <translation>not set</translation>
    </message>
    <message id="MemoryCardName">
        <source></source>
        <extracomment>%1: name of a memory position, %2: its height with unit</extracomment>
        <translation>%1, %2</translation>
    </message>
    <message id="StoreButton">
        <source></source>
        <extracomment>Stores the desk’s height as a memory position</extracomment>
        <translation>Store</translation>
    </message>
    <message id="Welcome">
        <source></source>
        <extracomment>Title beside the settings when the program is started for the first time</extracomment>
        <translation>First steps</translation>
    </message>
    <message id="WelcomeText">
        <source></source>
        <extracomment>What to do there, over a picture of the desk that moves with it</extracomment>
        <translation>Set the heights for sitting and standing: choose one, hold Up or Down, then store.</translation>
    </message>
    <!-- History -->
    <message id="History">
        <source></source>
        <translation>History</translation>
    </message>
    <message id="CaloriesCheckbox" numerus="yes">
        <source></source>
        <translation>
            <numerusform>calorie</numerusform>
            <numerusform>calories</numerusform>
        </translation>
    </message>
    <message id="Stands" numerus="yes">
        <source></source>
        <translation>
            <numerusform>stand-up</numerusform>
            <numerusform>stand-ups</numerusform>
        </translation>
    </message>
    <message id="GoalsMet" numerus="yes">
        <source></source>
        <translation>
            <numerusform>goal met</numerusform>
            <numerusform>goals met</numerusform>
        </translation>
    </message>
    <message id="GoalsMetHint">
        <source>Counted in calories: days that burned at least %1.</source>
        <extracomment>Tooltip and spoken description of the goals met; %1: the goal’s number</extracomment>
        <translation>Counted in calories: days that burned at least %1.</translation>
    </message>
    <message id="Day">
        <source></source>
        <translation>Day</translation>
    </message>
    <message id="Week">
        <source></source>
        <translation>Week</translation>
    </message>
    <message id="Month">
        <source></source>
        <translation>Month</translation>
    </message>
    <message id="Year">
        <source></source>
        <translation>Year</translation>
    </message>
    <message id="YourDailyStats">
        <source></source>
        <translation>Your day so far</translation>
    </message>
    <message id="YourWeeklyStats">
        <source></source>
        <translation>Your week so far</translation>
    </message>
    <message id="YourMonthlyStats">
        <source></source>
        <extracomment>%1: name of the month</extracomment>
        <translation>Your month so far: %1</translation>
    </message>
    <message id="YourYearlyStats">
        <source></source>
        <extracomment>%1: the year</extracomment>
        <translation>Your year so far: %1</translation>
    </message>
    <message id="HistoryDates">
        <source></source>
        <extracomment>%1: the first and the last date; %2: time of day</extracomment>
        <translation>%1, until %2</translation>
    </message>
    <message id="ExportData">
        <source></source>
        <translation>Export to a file…</translation>
    </message>
    <message id="ExportFileName">
        <source></source>
        <extracomment>%1: date as 31-12-2024</extracomment>
        <translation>Zelvo StandUp %1.csv</translation>
    </message>
    <!-- What a screen reader says -->
    <message id="AccessMoveUpHint">
        <source></source>
        <translation>Hold to raise the desk</translation>
    </message>
    <message id="AccessMoveDownHint">
        <source></source>
        <translation>Hold to lower the desk</translation>
    </message>
    <message id="AccessMemoryHint">
        <source></source>
        <translation>Hold to move the desk to this position</translation>
    </message>
    <message id="KeepHolding">
        <source>Keep holding</source>
        <extracomment>Over a button that was let go too soon</extracomment>
        <translation>Keep holding</translation>
    </message>
    <message id="AccessSetMemoryHint">
        <source></source>
        <translation>Set the height of this position</translation>
    </message>
    <message id="AccessGoalProgress">
        <source></source>
        <translation>Progress towards today’s goal</translation>
    </message>
    <message id="AccessSessionProgress">
        <source></source>
        <translation>Progress of the current session</translation>
    </message>
    <message id="AccessGoalSlider">
        <source></source>
        <translation>Goal</translation>
    </message>
    <message id="AccessErrorLine">
        <source></source>
        <translation>Desk errors</translation>
    </message>
    <message id="AccessCloseWithoutSaving">
        <source></source>
        <translation>Close without saving</translation>
    </message>
</context>
</TS>
