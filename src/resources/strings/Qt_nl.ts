<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- What Qt itself says in this program: in its dialogs, its context menus, and to screen readers -->
<TS version="2.1" language="nl" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message><source>OK</source><translation>OK</translation></message>
    <message><source>Cancel</source><translation>Annuleren</translation></message>
    <message><source>Save</source><translation>Opslaan</translation></message>
    <message><source>Open</source><translation>Openen</translation></message>
    <message><source>&amp;Yes</source><translation>&amp;Ja</translation></message>
    <message><source>&amp;No</source><translation>&amp;Nee</translation></message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message><source>&amp;OK</source><translation>&amp;OK</translation></message>
    <message><source>&amp;Cancel</source><translation>&amp;Annuleren</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Opslaan</translation></message>
</context>
<context>
    <name>QFileDialog</name>
    <message><source>Save As</source><translation>Opslaan als</translation></message>
    <message><source>Look in:</source><translation>Locatie:</translation></message>
    <message><source>File &amp;name:</source><translation>Bestands&amp;naam:</translation></message>
    <message><source>Files of type:</source><translation>Bestandstype:</translation></message>
    <message><source>All Files (*)</source><translation>Alle bestanden (*)</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Opslaan</translation></message>
    <message><source>&amp;Open</source><translation>&amp;Openen</translation></message>
    <message><source>Back</source><translation>Terug</translation></message>
    <message><source>Go back</source><translation>Terug naar de vorige map</translation></message>
    <message><source>Forward</source><translation>Vooruit</translation></message>
    <message><source>Go forward</source><translation>Vooruit naar de volgende map</translation></message>
    <message><source>Parent Directory</source><translation>Bovenliggende map</translation></message>
    <message><source>Go to the parent directory</source><translation>Naar de bovenliggende map</translation></message>
    <message><source>Create New Folder</source><translation>Nieuwe map</translation></message>
    <message><source>Create a New Folder</source><translation>Een map maken</translation></message>
    <message><source>New Folder</source><translation>Nieuwe map</translation></message>
    <message><source>&amp;New Folder</source><translation>&amp;Nieuwe map</translation></message>
    <message><source>List View</source><translation>Lijst</translation></message>
    <message><source>Change to list view mode</source><translation>Als lijst tonen</translation></message>
    <message><source>Detail View</source><translation>Details</translation></message>
    <message><source>Change to detail view mode</source><translation>Met details tonen</translation></message>
    <message><source>Files</source><translation>Bestanden</translation></message>
    <message><source>Sidebar</source><translation>Locaties</translation></message>
    <message><source>List of places and bookmarks</source><translation>Locaties en bladwijzers</translation></message>
    <message><source>Recent Places</source><translation>Recente locaties</translation></message>
    <message><source>&amp;Rename</source><translation>&amp;Hernoemen</translation></message>
    <message><source>&amp;Delete</source><translation>&amp;Verwijderen</translation></message>
    <message><source>Show &amp;hidden files</source><translation>Verborgen &amp;bestanden tonen</translation></message>
    <message><source>Show </source><translation>Kolom: </translation></message>
    <message><source>Remove</source><translation>Weghalen</translation></message>
    <message><source>Delete</source><translation>Verwijderen</translation></message>
    <message><source>%1 already exists.
Do you want to replace it?</source><translation>%1 bestaat al.
Moet het bestand worden vervangen?</translation></message>
    <message><source>Are you sure you want to delete '%1'?</source><translation>Moet ‘%1’ echt worden verwijderd?</translation></message>
    <message><source>'%1' is write protected.
Do you want to delete it anyway?</source><translation>‘%1’ is tegen schrijven beveiligd.
Toch verwijderen?</translation></message>
    <message><source>Could not delete directory.</source><translation>De map kan niet worden verwijderd.</translation></message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message><source>Name</source><translation>Naam</translation></message>
    <message><source>Size</source><translation>Grootte</translation></message>
    <message><source>Type</source><translation>Type</translation></message>
    <message><source>Date Modified</source><translation>Gewijzigd</translation></message>
    <message><source>Computer</source><translation>Computer</translation></message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message><source>Drive</source><translation>Station</translation></message>
    <message><source>Folder</source><translation>Map</translation></message>
    <message><source>Unknown</source><translation>Onbekend</translation></message>
</context>
<context>
    <name>QLineEdit</name>
    <message><source>&amp;Undo</source><translation>&amp;Ongedaan maken</translation></message>
    <message><source>&amp;Redo</source><translation>O&amp;pnieuw</translation></message>
    <message><source>Cu&amp;t</source><translation>K&amp;nippen</translation></message>
    <message><source>&amp;Copy</source><translation>&amp;Kopiëren</translation></message>
    <message><source>&amp;Paste</source><translation>P&amp;lakken</translation></message>
    <message><source>Delete</source><translation>Verwijderen</translation></message>
    <message><source>Select All</source><translation>Alles selecteren</translation></message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message><source>&amp;Copy</source><translation>&amp;Kopiëren</translation></message>
    <message><source>Select All</source><translation>Alles selecteren</translation></message>
    <message><source>Copy &amp;Link Location</source><translation>Adres van de &amp;link kopiëren</translation></message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message><source>&amp;Select All</source><translation>Alles &amp;selecteren</translation></message>
    <message><source>&amp;Step up</source><translation>&amp;Hoger</translation></message>
    <message><source>Step &amp;down</source><translation>&amp;Lager</translation></message>
</context>
<context>
    <name>QScrollBar</name>
    <message><source>Scroll here</source><translation>Hierheen</translation></message>
    <message><source>Top</source><translation>Begin</translation></message>
    <message><source>Bottom</source><translation>Einde</translation></message>
    <message><source>Page up</source><translation>Pagina omhoog</translation></message>
    <message><source>Page down</source><translation>Pagina omlaag</translation></message>
    <message><source>Scroll up</source><translation>Omhoog</translation></message>
    <message><source>Scroll down</source><translation>Omlaag</translation></message>
    <message><source>Left edge</source><translation>Linkerrand</translation></message>
    <message><source>Right edge</source><translation>Rechterrand</translation></message>
    <message><source>Page left</source><translation>Pagina naar links</translation></message>
    <message><source>Page right</source><translation>Pagina naar rechts</translation></message>
    <message><source>Scroll left</source><translation>Naar links</translation></message>
    <message><source>Scroll right</source><translation>Naar rechts</translation></message>
</context>
<context>
    <name>QComboBox</name>
    <message><source>Open the combo box selection popup</source><translation>De lijst openen</translation></message>
</context>
<context>
    <name>QAccessibleActionInterface</name>
    <message><source>Press</source><translation>Drukken</translation></message>
    <message><source>Triggers the action</source><translation>Voert de actie uit</translation></message>
    <message><source>Toggle</source><translation>Omschakelen</translation></message>
    <message><source>Toggles the state</source><translation>Schakelt de toestand om</translation></message>
    <message><source>Increase</source><translation>Verhogen</translation></message>
    <message><source>Increase the value</source><translation>Verhoogt de waarde</translation></message>
    <message><source>Decrease</source><translation>Verlagen</translation></message>
    <message><source>Decrease the value</source><translation>Verlaagt de waarde</translation></message>
    <message><source>ShowMenu</source><translation>Menu tonen</translation></message>
    <message><source>Shows the menu</source><translation>Toont het menu</translation></message>
    <message><source>SetFocus</source><translation>Focus geven</translation></message>
    <message><source>Sets the focus</source><translation>Geeft de focus</translation></message>
</context>
<context>
    <name>QShortcut</name>
    <message><source>Ctrl</source><translation>Ctrl</translation></message>
    <message><source>Shift</source><translation>Shift</translation></message>
    <message><source>Alt</source><translation>Alt</translation></message>
    <message><source>Del</source><translation>Del</translation></message>
</context>
</TS>
