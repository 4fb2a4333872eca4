<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- What Qt itself says in this program: in its dialogs, its context menus, and to screen readers -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message><source>OK</source><translation>OK</translation></message>
    <message><source>Cancel</source><translation>Abbrechen</translation></message>
    <message><source>Save</source><translation>Speichern</translation></message>
    <message><source>Open</source><translation>Öffnen</translation></message>
    <message><source>&amp;Yes</source><translation>&amp;Ja</translation></message>
    <message><source>&amp;No</source><translation>&amp;Nein</translation></message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message><source>&amp;OK</source><translation>&amp;OK</translation></message>
    <message><source>&amp;Cancel</source><translation>&amp;Abbrechen</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Speichern</translation></message>
</context>
<context>
    <name>QFileDialog</name>
    <message><source>Save As</source><translation>Speichern unter</translation></message>
    <message><source>Look in:</source><translation>Ort:</translation></message>
    <message><source>File &amp;name:</source><translation>Datei&amp;name:</translation></message>
    <message><source>Files of type:</source><translation>Dateityp:</translation></message>
    <message><source>All Files (*)</source><translation>Alle Dateien (*)</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Speichern</translation></message>
    <message><source>&amp;Open</source><translation>Ö&amp;ffnen</translation></message>
    <message><source>Back</source><translation>Zurück</translation></message>
    <message><source>Go back</source><translation>Einen Ordner zurück</translation></message>
    <message><source>Forward</source><translation>Vor</translation></message>
    <message><source>Go forward</source><translation>Einen Ordner vor</translation></message>
    <message><source>Parent Directory</source><translation>Übergeordneter Ordner</translation></message>
    <message><source>Go to the parent directory</source><translation>Zum übergeordneten Ordner</translation></message>
    <message><source>Create New Folder</source><translation>Neuer Ordner</translation></message>
    <message><source>Create a New Folder</source><translation>Einen Ordner anlegen</translation></message>
    <message><source>New Folder</source><translation>Neuer Ordner</translation></message>
    <message><source>&amp;New Folder</source><translation>&amp;Neuer Ordner</translation></message>
    <message><source>List View</source><translation>Liste</translation></message>
    <message><source>Change to list view mode</source><translation>Als Liste zeigen</translation></message>
    <message><source>Detail View</source><translation>Einzelheiten</translation></message>
    <message><source>Change to detail view mode</source><translation>Mit Einzelheiten zeigen</translation></message>
    <message><source>Files</source><translation>Dateien</translation></message>
    <message><source>Sidebar</source><translation>Orte</translation></message>
    <message><source>List of places and bookmarks</source><translation>Orte und Lesezeichen</translation></message>
    <message><source>Recent Places</source><translation>Zuletzt besucht</translation></message>
    <message><source>&amp;Rename</source><translation>&amp;Umbenennen</translation></message>
    <message><source>&amp;Delete</source><translation>&amp;Löschen</translation></message>
    <message><source>Show &amp;hidden files</source><translation>&amp;Versteckte Dateien zeigen</translation></message>
    <message><source>Show </source><translation>Spalte: </translation></message>
    <message><source>Remove</source><translation>Entfernen</translation></message>
    <message><source>Delete</source><translation>Löschen</translation></message>
    <message><source>%1 already exists.
Do you want to replace it?</source><translation>%1 ist schon da.
Soll die Datei ersetzt werden?</translation></message>
    <message><source>Are you sure you want to delete '%1'?</source><translation>Soll „%1“ wirklich gelöscht werden?</translation></message>
    <message><source>'%1' is write protected.
Do you want to delete it anyway?</source><translation>„%1“ ist schreibgeschützt.
Trotzdem löschen?</translation></message>
    <message><source>Could not delete directory.</source><translation>Der Ordner lässt sich nicht löschen.</translation></message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message><source>Name</source><translation>Name</translation></message>
    <message><source>Size</source><translation>Größe</translation></message>
    <message><source>Type</source><translation>Typ</translation></message>
    <message><source>Date Modified</source><translation>Geändert</translation></message>
    <message><source>Computer</source><translation>Rechner</translation></message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message><source>Drive</source><translation>Laufwerk</translation></message>
    <message><source>Folder</source><translation>Ordner</translation></message>
    <message><source>Unknown</source><translation>Unbekannt</translation></message>
</context>
<context>
    <name>QLineEdit</name>
    <message><source>&amp;Undo</source><translation>&amp;Rückgängig</translation></message>
    <message><source>&amp;Redo</source><translation>&amp;Wiederholen</translation></message>
    <message><source>Cu&amp;t</source><translation>&amp;Ausschneiden</translation></message>
    <message><source>&amp;Copy</source><translation>&amp;Kopieren</translation></message>
    <message><source>&amp;Paste</source><translation>&amp;Einfügen</translation></message>
    <message><source>Delete</source><translation>Löschen</translation></message>
    <message><source>Select All</source><translation>Alles auswählen</translation></message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message><source>&amp;Copy</source><translation>&amp;Kopieren</translation></message>
    <message><source>Select All</source><translation>Alles auswählen</translation></message>
    <message><source>Copy &amp;Link Location</source><translation>&amp;Link-Adresse kopieren</translation></message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message><source>&amp;Select All</source><translation>A&amp;lles auswählen</translation></message>
    <message><source>&amp;Step up</source><translation>&amp;Höher</translation></message>
    <message><source>Step &amp;down</source><translation>&amp;Tiefer</translation></message>
</context>
<context>
    <name>QScrollBar</name>
    <message><source>Scroll here</source><translation>Hierher</translation></message>
    <message><source>Top</source><translation>Anfang</translation></message>
    <message><source>Bottom</source><translation>Ende</translation></message>
    <message><source>Page up</source><translation>Seite nach oben</translation></message>
    <message><source>Page down</source><translation>Seite nach unten</translation></message>
    <message><source>Scroll up</source><translation>Nach oben</translation></message>
    <message><source>Scroll down</source><translation>Nach unten</translation></message>
    <message><source>Left edge</source><translation>Linker Rand</translation></message>
    <message><source>Right edge</source><translation>Rechter Rand</translation></message>
    <message><source>Page left</source><translation>Seite nach links</translation></message>
    <message><source>Page right</source><translation>Seite nach rechts</translation></message>
    <message><source>Scroll left</source><translation>Nach links</translation></message>
    <message><source>Scroll right</source><translation>Nach rechts</translation></message>
</context>
<context>
    <name>QComboBox</name>
    <message><source>Open the combo box selection popup</source><translation>Die Auswahl öffnen</translation></message>
</context>
<context>
    <name>QAccessibleActionInterface</name>
    <message><source>Press</source><translation>Drücken</translation></message>
    <message><source>Triggers the action</source><translation>Löst die Aktion aus</translation></message>
    <message><source>Toggle</source><translation>Umschalten</translation></message>
    <message><source>Toggles the state</source><translation>Schaltet den Zustand um</translation></message>
    <message><source>Increase</source><translation>Erhöhen</translation></message>
    <message><source>Increase the value</source><translation>Erhöht den Wert</translation></message>
    <message><source>Decrease</source><translation>Verringern</translation></message>
    <message><source>Decrease the value</source><translation>Verringert den Wert</translation></message>
    <message><source>ShowMenu</source><translation>Menü zeigen</translation></message>
    <message><source>Shows the menu</source><translation>Zeigt das Menü</translation></message>
    <message><source>SetFocus</source><translation>Fokus setzen</translation></message>
    <message><source>Sets the focus</source><translation>Setzt den Fokus</translation></message>
</context>
<context>
    <name>QShortcut</name>
    <message><source>Ctrl</source><translation>Strg</translation></message>
    <message><source>Shift</source><translation>Umschalt</translation></message>
    <message><source>Alt</source><translation>Alt</translation></message>
    <message><source>Del</source><translation>Entf</translation></message>
</context>
</TS>
