<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name></name>
    <!-- The program -->
    <message id="AppName">
        <source>Zelvo StandUp</source>
        <translation>Zelvo StandUp</translation>
    </message>
    <message id="ContextMenuOpen">
        <source>Open Zelvo StandUp</source>
        <translation>Zelvo StandUp openen</translation>
    </message>
    <message id="ContextMenuHistory">
        <source>History</source>
        <translation>Geschiedenis</translation>
    </message>
    <message id="ContextMenuSettings">
        <source>Settings…</source>
        <translation>Instellingen…</translation>
    </message>
    <message id="ContextMenuExit">
        <source>Quit</source>
        <translation>Afsluiten</translation>
    </message>
    <message id="TrayTooltipSitting">
        <source>Sitting at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Zitten op %1</translation>
    </message>
    <message id="TrayTooltipStanding">
        <source>Standing at %1</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Staan op %1</translation>
    </message>
    <message id="TrayTooltipPaused">
        <source>Paused at %1; nothing is being recorded</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Gepauzeerd op %1, er wordt niets vastgelegd</translation>
    </message>
    <message id="TrayTooltipError">
        <source>The desk reports an error (%1)</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray; %1: height with its unit</extracomment>
        <translation>Het bureau meldt een fout (%1)</translation>
    </message>
    <message id="TrayTooltipChange" numerus="yes">
        <source>%1 minutes to the next change</source>
        <extracomment>Follows the posture and a comma in that tooltip; %1: whole minutes</extracomment>
        <translation>
            <numerusform>nog %1 minuut tot de wissel</numerusform>
            <numerusform>nog %1 minuten tot de wissel</numerusform>
        </translation>
    </message>
    <message id="TrayTooltipDisconnected">
        <source>No desk connected</source>
        <extracomment>Tooltip and spoken state of the icon in the system tray</extracomment>
        <translation>Geen bureau verbonden</translation>
    </message>
    <!-- Ending and errors -->
    <message id="Could not save changes while quitting. Quit anyway?">
        <source>Could not save changes while quitting. Quit anyway?</source>
        <translation>De wijzigingen konden bij het afsluiten niet worden opgeslagen. Toch afsluiten?</translation>
    </message>
    <message id="Quitting now will lose any changes you have made since the last successful save">
        <source>Quitting now will lose any changes you have made since the last successful save</source>
        <translation>Alle wijzigingen sinds de laatste keer opslaan gaan verloren.</translation>
    </message>
    <message id="Quit anyway">
        <source>Quit anyway</source>
        <translation>Toch afsluiten</translation>
    </message>
    <message id="Cancel">
        <source>Cancel</source>
        <translation>Annuleren</translation>
    </message>
    <message id="Expected a folder to store application data, found a file (%1).">
        <source>Expected a folder to store application data, found a file (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Er werd een map voor de programmagegevens verwacht, maar er is een bestand gevonden (%1).</translation>
    </message>
    <message id="Failed to initialize the store">
        <source>Failed to initialize the store</source>
        <translation>De gegevensopslag kon niet worden voorbereid</translation>
    </message>
    <message id="There was an error building up the data file.">
        <source>There was an error building up the data file.</source>
        <translation>Er is een fout opgetreden bij het aanmaken van het gegevensbestand.</translation>
    </message>
    <message id="StoreDamaged">
        <source>The record of your activities is damaged. It has been left as it is (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>De registratie van de activiteiten is beschadigd. Ze is ongewijzigd gelaten (%1).</translation>
    </message>
    <message id="StoreDiskFull">
        <source>There is no space left on the disk for the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Er is geen schijfruimte meer voor de registratie van de activiteiten (%1).</translation>
    </message>
    <message id="StoreInUse">
        <source>Another program is using the record of your activities (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Een ander programma gebruikt de registratie van de activiteiten (%1).</translation>
    </message>
    <message id="StoreNotWritable">
        <source>The record of your activities is write-protected (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>De registratie van de activiteiten is tegen schrijven beveiligd (%1).</translation>
    </message>
    <message id="StoreUnreadable">
        <source>The record of your activities cannot be read or written (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>De registratie van de activiteiten kan niet worden gelezen of geschreven (%1).</translation>
    </message>
    <message id="StoreNotAFile">
        <source>Found something other than a file where your activity record should be (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>In plaats van de registratie van de activiteiten staat er iets wat geen bestand is (%1).</translation>
    </message>
    <message id="StoreMissingBesideLog">
        <source>The record of your activities is missing or empty, but the log of its last changes is still there and has been left as it is (%1-wal).</source>
        <extracomment>%1: path</extracomment>
        <translation>De registratie van de activiteiten ontbreekt of is leeg, maar het logboek van de laatste wijzigingen is er nog en is ongewijzigd gelaten (%1-wal).</translation>
    </message>
    <message id="StoreTooNew">
        <source>The record of your activities was written by a newer version of this program (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>De registratie van de activiteiten is door een nieuwere versie van dit programma geschreven (%1).</translation>
    </message>
    <message id="StoreForeign">
        <source>The file where your activity record should be holds something else (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>Het bestand op de plaats van de registratie van de activiteiten bevat iets anders (%1).</translation>
    </message>
    <message id="StoreGone">
        <source>The record of your activities was removed or replaced while the program was running (%1).</source>
        <extracomment>%1: path</extracomment>
        <translation>De registratie van de activiteiten is verwijderd of vervangen terwijl het programma liep (%1).</translation>
    </message>
    <message id="StoreGoneReason">
        <source>The program continues with the file that is there now, or a new one. It contains the current session.</source>
        <translation>Het programma gaat verder met het bestand dat er nu staat, of met een nieuw. De lopende periode staat erin.</translation>
    </message>
    <message id="StoreAdviceReplace">
        <source>Put a copy from your backup in its place, or move the file away to begin with an empty record.</source>
        <translation>Zet een reservekopie op deze plek, of verplaats het bestand om met een lege registratie te beginnen.</translation>
    </message>
    <message id="StoreAdviceMakeRoom">
        <source>Free up some disk space.</source>
        <translation>Maak ruimte vrij op de schijf.</translation>
    </message>
    <message id="StoreAdviceCloseOther">
        <source>Close the other program.</source>
        <translation>Sluit het andere programma.</translation>
    </message>
    <message id="StoreAdvicePermissions">
        <source>Check the permissions of the file and of its folder, and that the disk is healthy.</source>
        <translation>Controleer de rechten van het bestand en van de map, en of de schijf in orde is.</translation>
    </message>
    <message id="StoreAdviceNewerProgram">
        <source>Install the newer version again.</source>
        <translation>Installeer de nieuwere versie opnieuw.</translation>
    </message>
    <message id="StoreNothingRecorded">
        <source>Nothing is recorded until then; the program keeps trying.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be opened</extracomment>
        <translation>Tot dan wordt niets geregistreerd; het programma probeert het vanzelf opnieuw.</translation>
    </message>
    <message id="StoreKept">
        <source>Unsaved changes are kept while the program runs and saved as soon as possible.</source>
        <extracomment>Stands behind one of the advices above, where the record cannot be saved</extracomment>
        <translation>Wat niet kon worden opgeslagen, blijft behouden zolang het programma loopt, en wordt opgeslagen zodra dat kan.</translation>
    </message>
    <message id="DataFolderError">
        <source>The folder for the program’s data cannot be used: %1</source>
        <extracomment>%1: path</extracomment>
        <translation>De map voor de programmagegevens is niet bruikbaar: %1</translation>
    </message>
    <message id="DataFolderAdvice">
        <source>Nothing is recorded until it can be used. Move whatever is in the way, or allow the program to write there; it keeps trying.</source>
        <translation>Tot dan wordt niets geregistreerd. Verplaats wat op de plek van de map staat of sta schrijven daar toe; het programma probeert het vanzelf opnieuw.</translation>
    </message>
    <message id="SettingsDamaged">
        <source>Some lines of the settings file cannot be read (%1). All other settings are kept.</source>
        <extracomment>%1: path</extracomment>
        <translation>Sommige regels van het instellingenbestand zijn onleesbaar (%1). Alle andere instellingen blijven behouden.</translation>
    </message>
    <message id="SettingsDamagedReason">
        <source>%1&#10;&#10;The file as it was is kept here: %2</source>
        <extracomment>%1: the lines; %2: path of the copy</extracomment>
        <translation>%1&#10;&#10;Het bestand zoals het was, staat hier: %2</translation>
    </message>
    <!-- Errors that the desk reports -->
    <message id="Error &#10;">
        <source>Desk error
</source>
        <extracomment>Heading of the list of errors; ends with a line break</extracomment>
        <translation>Bureaufout
</translation>
    </message>
    <message id="PositionLostError">
        <source>The desk has lost its position. Hold Down until it has reached the bottom.</source>
        <translation>Het bureau is zijn positie kwijt. Houd ‘Omlaag’ ingedrukt tot het helemaal beneden is.</translation>
    </message>
    <message id="OverloadUpError">
        <source>Overload while going up. Take some weight off the desk.</source>
        <translation>Overbelasting bij het omhoog gaan. Haal wat gewicht van het bureau.</translation>
    </message>
    <message id="OverloadDownError">
        <source>Overload while going down. Check that nothing is in the way.</source>
        <translation>Overbelasting bij het omlaag gaan. Controleer of er niets in de weg zit.</translation>
    </message>
    <!-- Units -->
    <message id="Centimeter">
        <source>cm</source>
        <translation>cm</translation>
    </message>
    <message id="Inches">
        <source>in</source>
        <translation>inch</translation>
    </message>
    <message id="Kg">
        <source>kg</source>
        <translation>kg</translation>
    </message>
    <message id="Lbs">
        <source>lb</source>
        <translation>lb</translation>
    </message>
    <message id="Min">
        <source>min</source>
        <translation>min</translation>
    </message>
    <message id="Mins" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>minuut</numerusform>
            <numerusform>minuten</numerusform>
        </translation>
    </message>
    <message id="Minutes" numerus="yes">
        <source>minutes</source>
        <translation>
            <numerusform>minuut</numerusform>
            <numerusform>minuten</numerusform>
        </translation>
    </message>
    <message id="Appearance">
        <source>Look</source>
        <extracomment>Beside the choice between a light and a dark look of the windows</extracomment>
        <translation>Weergave</translation>
    </message>
    <message id="AppearanceLight">
        <source>Light</source>
        <translation>Licht</translation>
    </message>
    <message id="AppearanceDark">
        <source>Dark</source>
        <translation>Donker</translation>
    </message>
    <message id="AppearanceDesktop">
        <source>As the desktop</source>
        <translation>Volgens het systeem</translation>
    </message>
    <message id="Calories" numerus="yes">
        <source>Calories</source>
        <translation>
            <numerusform>Calorie</numerusform>
            <numerusform>Calorieën</numerusform>
        </translation>
    </message>
    <!-- Buttons -->
    <message id="UpButton">
        <source>Up</source>
        <translation>Omhoog</translation>
    </message>
    <message id="DownButton">
        <source>Down</source>
        <translation>Omlaag</translation>
    </message>
    <message id="Memory1">
        <source>Sit</source>
        <translation>Zitten</translation>
    </message>
    <message id="Memory2">
        <source>Stand</source>
        <translation>Staan</translation>
    </message>
    <message id="Memory3">
        <source>Position 3</source>
        <translation>Positie 3</translation>
    </message>
    <message id="HistoryButton">
        <source>History</source>
        <translation>Geschiedenis</translation>
    </message>
    <message id="SettingsButton">
        <source>Settings</source>
        <translation>Instellingen</translation>
    </message>
    <message id="SnoozeButton">
        <source>Snooze</source>
        <translation>Later</translation>
    </message>
    <message id="SkipButton">
        <source>Skip</source>
        <translation>Overslaan</translation>
    </message>
    <message id="DoneButton">
        <source>Done</source>
        <translation>Gereed</translation>
    </message>
    <message id="CloseButton">
        <source>Close</source>
        <translation>Sluiten</translation>
    </message>
    <!-- Main window -->
    <message id="TableHeightLabel">
        <source>Desk height</source>
        <translation>Bureauhoogte</translation>
    </message>
    <message id="OfTodaysGoal">
        <source>of today’s goal</source>
        <translation>van het doel van vandaag</translation>
    </message>
    <message id="Today">
        <source>Today</source>
        <extracomment>In the main window, under the circle with what was done today</extracomment>
        <translation>Vandaag</translation>
    </message>
    <message id="CurrentSession">
        <source>Current session</source>
        <translation>Huidige periode</translation>
    </message>
    <message id="NoDesk">
        <source>No desk found</source>
        <extracomment>In the main window, above ConnectTable</extracomment>
        <translation>Geen bureau gevonden</translation>
    </message>
    <message id="ConnectTable">
        <source>Please connect your desk</source>
        <translation>Sluit het bureau aan</translation>
    </message>
    <message id="AdapterForbidden">
        <source>You have no permission to use the adapter. Run these commands in a terminal to allow it:</source>
        <extracomment>In the main window, above two commands</extracomment>
        <translation>De adapter is er, maar mag niet worden geopend. Deze opdrachten in een terminal staan het toe:</translation>
    </message>
    <message id="CopyCommands">
        <source>Copy the commands</source>
        <extracomment>Below the two commands of AdapterForbidden</extracomment>
        <translation>Opdrachten kopiëren</translation>
    </message>
    <message id="CommandsCopied">
        <source>Copied</source>
        <extracomment>Takes the place of CopyCommands</extracomment>
        <translation>Gekopieerd</translation>
    </message>
    <!-- Reminder: the headline when the user stands and is asked to sit -->
    <message id="StandingMessage1">
        <source>Time to take a seat</source>
        <translation>Tijd om te gaan zitten</translation>
    </message>
    <message id="StandingMessage2">
        <source>Well stood! Have a seat.</source>
        <translation>Goed gestaan! De stoel staat klaar.</translation>
    </message>
    <message id="StandingMessage3">
        <source>Your legs have earned a rest</source>
        <translation>Rust voor de benen, wel verdiend</translation>
    </message>
    <message id="StandingMessage4">
        <source>How about sitting for a while?</source>
        <translation>Even gaan zitten?</translation>
    </message>
    <message id="StandingMessage5">
        <source>A good moment to sit down</source>
        <translation>Een goed moment om te zitten</translation>
    </message>
    <message id="StandingMessage6">
        <source>Your chair is ready when you are</source>
        <translation>De stoel staat al te wachten</translation>
    </message>
    <message id="StandingMessage7">
        <source>Let the desk come down with you</source>
        <translation>Samen met het bureau omlaag</translation>
    </message>
    <message id="StandingMessage8">
        <source>Ease back into your chair</source>
        <translation>Rustig terug naar de stoel</translation>
    </message>
    <message id="StandingMessage9">
        <source>Nicely done. Now take a rest.</source>
        <translation>Mooi gedaan. Nu even bijkomen.</translation>
    </message>
    <message id="StandingMessage10">
        <source>A change of view: sit for a bit</source>
        <translation>Ander uitzicht: even zitten</translation>
    </message>
    <!-- Reminder: the headline when the user sits and is asked to stand -->
    <message id="SittingMessage1">
        <source>Time to stand up</source>
        <translation>Tijd om te gaan staan</translation>
    </message>
    <message id="SittingMessage2">
        <source>Ready for a stretch?</source>
        <translation>Zin om even te strekken?</translation>
    </message>
    <message id="SittingMessage3">
        <source>A good moment to get on your feet</source>
        <translation>Een goed moment om op te staan</translation>
    </message>
    <message id="SittingMessage4">
        <source>Your back will enjoy this: stand up</source>
        <translation>Fijn voor de rug: even staan</translation>
    </message>
    <message id="SittingMessage5">
        <source>Give your legs something to do</source>
        <translation>Geef de benen wat te doen</translation>
    </message>
    <message id="SittingMessage6">
        <source>How about standing for a while?</source>
        <translation>Even gaan staan?</translation>
    </message>
    <message id="SittingMessage7">
        <source>Rise with your desk</source>
        <translation>Samen met het bureau omhoog</translation>
    </message>
    <message id="SittingMessage8">
        <source>A new angle on things: stand up</source>
        <translation>Andere kijk op de zaak: staand</translation>
    </message>
    <message id="SittingMessage9">
        <source>A little stand, a clearer head</source>
        <translation>Even staan, helder hoofd</translation>
    </message>
    <message id="SittingMessage10">
        <source>Up you get, in your own time</source>
        <translation>Omhoog, op eigen tempo</translation>
    </message>
    <!-- Reminder: the line below the headline -->
    <message id="NotificationDetailMessage1">
        <source>Stand for %1 min</source>
        <extracomment>%1: whole minutes; NotificationDetailMessage2 follows on the same line</extracomment>
        <translation>%1 min staan</translation>
    </message>
    <message id="NotificationDetailMessage2" numerus="yes">
        <source>to burn %1 calories.</source>
        <extracomment>%1: whole kilocalories</extracomment>
        <translation>
            <numerusform>verbrandt %1 calorie.</numerusform>
            <numerusform>verbrandt %1 calorieën.</numerusform>
        </translation>
    </message>
    <message id="NotificationSittingmemory">
        <source>Sit for %1 min, then stand again.</source>
        <extracomment>%1: whole minutes</extracomment>
        <translation>%1 min zitten, dan weer staan.</translation>
    </message>
    <!-- Setup -->
    <message id="Setup">
        <source>Settings</source>
        <translation>Instellingen</translation>
    </message>
    <message id="TableHeightHeader">
        <source>Desk height now</source>
        <translation>Bureauhoogte nu</translation>
    </message>
    <message id="MyWeightIs">
        <source>My weight</source>
        <translation>Mijn gewicht</translation>
    </message>
    <message id="StandUpHeader">
        <source>Stand-ups</source>
        <translation>Keer staan</translation>
    </message>
    <message id="EachHour">
        <source>per hour</source>
        <extracomment>Behind the field with the number of stand-ups, 1 to 6; the words must suit 1 too</extracomment>
        <translation>per uur</translation>
    </message>
    <message id="Time">
        <source>Time</source>
        <translation>Tijd</translation>
    </message>
    <message id="SetupCaloriesHeader">
        <source>Calories to burn by standing each day</source>
        <extracomment>Heading over the goals in calories</extracomment>
        <translation>Calorieën per dag, staand verbrand</translation>
    </message>
    <message id="SetupEnergyHeader">
        <source>Minutes to stand each hour</source>
        <extracomment>Heading over the goals in time</extracomment>
        <translation>Minuten staan per uur</translation>
    </message>
    <message id="SliderText">
        <source>That is %1 min on your feet each time you stand up.</source>
        <extracomment>%1: minutes in steps of a half</extracomment>
        <translation>Dat is %1 min staan per keer.</translation>
    </message>
    <message id="EntryRefused">
        <source>Enter a number from %1 to %2. The previous value has been restored.</source>
        <extracomment>%1 and %2: least and greatest value that the field takes</extracomment>
        <translation>Hier past een getal van %1 tot %2. De vorige waarde staat er weer.</translation>
    </message>
    <message id="InfoLinkButton">
        <source>Watch the video</source>
        <translation>Video bekijken</translation>
    </message>
    <message id="InfoLinkText">
        <source>More about standing at work</source>
        <translation>Meer over staand werken</translation>
    </message>
    <message id="AbsenceUnnoticed">
        <source></source>
        <translation>Deze desktopomgeving meldt geen afwezigheid: die telt als zitten of staan.</translation>
    </message>
    <message id="MemoryInstruction">
        <source>Hold Up or Down.</source>
        <extracomment>In the small panel that sets the height of a memory position</extracomment>
        <translation>Houd ‘Omhoog’ of ‘Omlaag’ ingedrukt.</translation>
    </message>
    <message id="MemoryHeader">
        <source>Stored heights</source>
        <extracomment>Heading over the memory positions</extracomment>
        <translation>Opgeslagen hoogten</translation>
    </message>
    <message id="MemoryNotSet">
        <source></source>
        <extracomment>In place of a height, for a position that has none</extracomment>
        <translation>niet ingesteld</translation>
    </message>
    <message id="MemoryCardName">
        <source></source>
        <extracomment>%1: name of a memory position, %2: its height with unit</extracomment>
        <translation>%1, %2</translation>
    </message>
    <message id="StoreButton">
        <source>Store</source>
        <extracomment>Stores the desk’s height as a memory position</extracomment>
        <translation>Opslaan</translation>
    </message>
    <message id="Welcome">
        <source>First steps</source>
        <extracomment>Title beside the settings when the program is started for the first time</extracomment>
        <translation>Eerste stappen</translation>
    </message>
    <message id="WelcomeText">
        <source>Set the heights for sitting and standing: choose one, hold Up or Down, then store.</source>
        <extracomment>What to do there, over a picture of the desk that moves with it</extracomment>
        <translation>De hoogten voor zitten en staan instellen: een kiezen, ‘Omhoog’ of ‘Omlaag’ ingedrukt houden en opslaan.</translation>
    </message>
    <!-- History -->
    <message id="History">
        <source>History</source>
        <translation>Geschiedenis</translation>
    </message>
    <message id="CaloriesCheckbox" numerus="yes">
        <source>calories</source>
        <translation>
            <numerusform>calorie</numerusform>
            <numerusform>calorieën</numerusform>
        </translation>
    </message>
    <message id="Stands" numerus="yes">
        <source>stand-ups</source>
        <translation>
            <numerusform>keer gestaan</numerusform>
            <numerusform>keer gestaan</numerusform>
        </translation>
    </message>
    <message id="GoalsMet" numerus="yes">
        <source>goals met</source>
        <translation>
            <numerusform>doel gehaald</numerusform>
            <numerusform>doelen gehaald</numerusform>
        </translation>
    </message>
    <message id="GoalsMetHint">
        <source>Counted in calories: days that burned at least %1.</source>
        <extracomment>Tooltip and spoken description of the goals met; %1: the goal’s number</extracomment>
        <translation>Geteld in calorieën: dagen met minstens %1.</translation>
    </message>
    <message id="Day">
        <source>Day</source>
        <translation>Dag</translation>
    </message>
    <message id="Week">
        <source>Week</source>
        <translation>Week</translation>
    </message>
    <message id="Month">
        <source>Month</source>
        <translation>Maand</translation>
    </message>
    <message id="Year">
        <source>Year</source>
        <translation>Jaar</translation>
    </message>
    <message id="YourDailyStats">
        <source>Your day so far</source>
        <translation>De dag tot nu toe</translation>
    </message>
    <message id="YourWeeklyStats">
        <source>Your week so far</source>
        <translation>De week tot nu toe</translation>
    </message>
    <message id="YourMonthlyStats">
        <source>Your month so far: %1</source>
        <extracomment>%1: name of the month</extracomment>
        <translation>De maand tot nu toe: %1</translation>
    </message>
    <message id="YourYearlyStats">
        <source>Your year so far: %1</source>
        <extracomment>%1: the year</extracomment>
        <translation>Het jaar tot nu toe: %1</translation>
    </message>
    <message id="HistoryDates">
        <source>%1, until %2</source>
        <extracomment>%1: the first and the last date; %2: time of day</extracomment>
        <translation>%1, tot %2 uur</translation>
    </message>
    <message id="ExportData">
        <source>Export to a file…</source>
        <translation>Exporteren naar een bestand…</translation>
    </message>
    <message id="ExportFileName">
        <source>Zelvo StandUp %1.csv</source>
        <extracomment>%1: date as 31-12-2024</extracomment>
        <translation>Zelvo StandUp %1.csv</translation>
    </message>
    <!-- What a screen reader says -->
    <message id="AccessMoveUpHint">
        <source>Hold to raise the desk</source>
        <translation>Ingedrukt houden om het bureau omhoog te laten gaan</translation>
    </message>
    <message id="AccessMoveDownHint">
        <source>Hold to lower the desk</source>
        <translation>Ingedrukt houden om het bureau omlaag te laten gaan</translation>
    </message>
    <message id="AccessMemoryHint">
        <source>Hold to move the desk to this position</source>
        <translation>Ingedrukt houden om het bureau naar deze positie te brengen</translation>
    </message>
    <message id="KeepHolding">
        <source>Keep holding</source>
        <extracomment>Over a button that was let go too soon</extracomment>
        <translation>Ingedrukt houden</translation>
    </message>
    <message id="AccessSetMemoryHint">
        <source>Set the height of this position</source>
        <translation>De hoogte van deze positie instellen</translation>
    </message>
    <message id="AccessGoalProgress">
        <source>Progress towards today’s goal</source>
        <translation>Voortgang naar het doel van vandaag</translation>
    </message>
    <message id="AccessSessionProgress">
        <source>Progress of the current session</source>
        <translation>Voortgang van de huidige periode</translation>
    </message>
    <message id="AccessGoalSlider">
        <source>Goal</source>
        <translation>Doel</translation>
    </message>
    <message id="AccessErrorLine">
        <source>Desk errors</source>
        <translation>Fouten van het bureau</translation>
    </message>
    <message id="AccessCloseWithoutSaving">
        <source>Close without saving</source>
        <translation>Sluiten zonder op te slaan</translation>
    </message>
</context>
</TS>
