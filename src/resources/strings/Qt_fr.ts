<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- What Qt itself says in this program: in its dialogs, its context menus, and to screen readers -->
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message><source>OK</source><translation>OK</translation></message>
    <message><source>Cancel</source><translation>Annuler</translation></message>
    <message><source>Save</source><translation>Enregistrer</translation></message>
    <message><source>Open</source><translation>Ouvrir</translation></message>
    <message><source>&amp;Yes</source><translation>&amp;Oui</translation></message>
    <message><source>&amp;No</source><translation>&amp;Non</translation></message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message><source>&amp;OK</source><translation>&amp;OK</translation></message>
    <message><source>&amp;Cancel</source><translation>&amp;Annuler</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Enregistrer</translation></message>
</context>
<context>
    <name>QFileDialog</name>
    <message><source>Save As</source><translation>Enregistrer sous</translation></message>
    <message><source>Look in:</source><translation>Emplacement :</translation></message>
    <message><source>File &amp;name:</source><translation>&amp;Nom du fichier :</translation></message>
    <message><source>Files of type:</source><translation>Type de fichier :</translation></message>
    <message><source>All Files (*)</source><translation>Tous les fichiers (*)</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Enregistrer</translation></message>
    <message><source>&amp;Open</source><translation>&amp;Ouvrir</translation></message>
    <message><source>Back</source><translation>Retour</translation></message>
    <message><source>Go back</source><translation>Revenir au dossier précédent</translation></message>
    <message><source>Forward</source><translation>Suivant</translation></message>
    <message><source>Go forward</source><translation>Aller au dossier suivant</translation></message>
    <message><source>Parent Directory</source><translation>Dossier parent</translation></message>
    <message><source>Go to the parent directory</source><translation>Aller au dossier parent</translation></message>
    <message><source>Create New Folder</source><translation>Nouveau dossier</translation></message>
    <message><source>Create a New Folder</source><translation>Créer un dossier</translation></message>
    <message><source>New Folder</source><translation>Nouveau dossier</translation></message>
    <message><source>&amp;New Folder</source><translation>&amp;Nouveau dossier</translation></message>
    <message><source>List View</source><translation>Liste</translation></message>
    <message><source>Change to list view mode</source><translation>Afficher en liste</translation></message>
    <message><source>Detail View</source><translation>Détails</translation></message>
    <message><source>Change to detail view mode</source><translation>Afficher les détails</translation></message>
    <message><source>Files</source><translation>Fichiers</translation></message>
    <message><source>Sidebar</source><translation>Emplacements</translation></message>
    <message><source>List of places and bookmarks</source><translation>Emplacements et signets</translation></message>
    <message><source>Recent Places</source><translation>Emplacements récents</translation></message>
    <message><source>&amp;Rename</source><translation>&amp;Renommer</translation></message>
    <message><source>&amp;Delete</source><translation>&amp;Supprimer</translation></message>
    <message><source>Show &amp;hidden files</source><translation>Afficher les fichiers &amp;cachés</translation></message>
    <message><source>Show </source><translation>Colonne : </translation></message>
    <message><source>Remove</source><translation>Retirer</translation></message>
    <message><source>Delete</source><translation>Supprimer</translation></message>
    <message><source>%1 already exists.
Do you want to replace it?</source><translation>%1 existe déjà.
Faut-il remplacer ce fichier ?</translation></message>
    <message><source>Are you sure you want to delete '%1'?</source><translation>Faut-il vraiment supprimer « %1 » ?</translation></message>
    <message><source>'%1' is write protected.
Do you want to delete it anyway?</source><translation>« %1 » est protégé en écriture.
Supprimer quand même ?</translation></message>
    <message><source>Could not delete directory.</source><translation>Impossible de supprimer le dossier.</translation></message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message><source>Name</source><translation>Nom</translation></message>
    <message><source>Size</source><translation>Taille</translation></message>
    <message><source>Type</source><translation>Type</translation></message>
    <message><source>Date Modified</source><translation>Modifié</translation></message>
    <message><source>Computer</source><translation>Ordinateur</translation></message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message><source>Drive</source><translation>Lecteur</translation></message>
    <message><source>Folder</source><translation>Dossier</translation></message>
    <message><source>Unknown</source><translation>Inconnu</translation></message>
</context>
<context>
    <name>QLineEdit</name>
    <message><source>&amp;Undo</source><translation>&amp;Annuler</translation></message>
    <message><source>&amp;Redo</source><translation>&amp;Rétablir</translation></message>
    <message><source>Cu&amp;t</source><translation>Co&amp;uper</translation></message>
    <message><source>&amp;Copy</source><translation>&amp;Copier</translation></message>
    <message><source>&amp;Paste</source><translation>C&amp;oller</translation></message>
    <message><source>Delete</source><translation>Supprimer</translation></message>
    <message><source>Select All</source><translation>Tout sélectionner</translation></message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message><source>&amp;Copy</source><translation>&amp;Copier</translation></message>
    <message><source>Select All</source><translation>Tout sélectionner</translation></message>
    <message><source>Copy &amp;Link Location</source><translation>Copier l’adresse du &amp;lien</translation></message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message><source>&amp;Select All</source><translation>Tout &amp;sélectionner</translation></message>
    <message><source>&amp;Step up</source><translation>Au&amp;gmenter</translation></message>
    <message><source>Step &amp;down</source><translation>&amp;Diminuer</translation></message>
</context>
<context>
    <name>QScrollBar</name>
    <message><source>Scroll here</source><translation>Jusqu’ici</translation></message>
    <message><source>Top</source><translation>Début</translation></message>
    <message><source>Bottom</source><translation>Fin</translation></message>
    <message><source>Page up</source><translation>Page vers le haut</translation></message>
    <message><source>Page down</source><translation>Page vers le bas</translation></message>
    <message><source>Scroll up</source><translation>Vers le haut</translation></message>
    <message><source>Scroll down</source><translation>Vers le bas</translation></message>
    <message><source>Left edge</source><translation>Bord gauche</translation></message>
    <message><source>Right edge</source><translation>Bord droit</translation></message>
    <message><source>Page left</source><translation>Page vers la gauche</translation></message>
    <message><source>Page right</source><translation>Page vers la droite</translation></message>
    <message><source>Scroll left</source><translation>Vers la gauche</translation></message>
    <message><source>Scroll right</source><translation>Vers la droite</translation></message>
</context>
<context>
    <name>QComboBox</name>
    <message><source>Open the combo box selection popup</source><translation>Ouvrir la liste</translation></message>
</context>
<context>
    <name>QAccessibleActionInterface</name>
    <message><source>Press</source><translation>Appuyer</translation></message>
    <message><source>Triggers the action</source><translation>Déclenche l’action</translation></message>
    <message><source>Toggle</source><translation>Basculer</translation></message>
    <message><source>Toggles the state</source><translation>Bascule l’état</translation></message>
    <message><source>Increase</source><translation>Augmenter</translation></message>
    <message><source>Increase the value</source><translation>Augmente la valeur</translation></message>
    <message><source>Decrease</source><translation>Diminuer</translation></message>
    <message><source>Decrease the value</source><translation>Diminue la valeur</translation></message>
    <message><source>ShowMenu</source><translation>Afficher le menu</translation></message>
    <message><source>Shows the menu</source><translation>Affiche le menu</translation></message>
    <message><source>SetFocus</source><translation>Donner le focus</translation></message>
    <message><source>Sets the focus</source><translation>Donne le focus</translation></message>
</context>
<context>
    <name>QShortcut</name>
    <message><source>Ctrl</source><translation>Ctrl</translation></message>
    <message><source>Shift</source><translation>Maj</translation></message>
    <message><source>Alt</source><translation>Alt</translation></message>
    <message><source>Del</source><translation>Suppr</translation></message>
</context>
</TS>
