<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- What Qt itself says in this program: in its dialogs, its context menus, and to screen readers -->
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message><source>OK</source><translation>Aceptar</translation></message>
    <message><source>Cancel</source><translation>Cancelar</translation></message>
    <message><source>Save</source><translation>Guardar</translation></message>
    <message><source>Open</source><translation>Abrir</translation></message>
    <message><source>&amp;Yes</source><translation>&amp;Sí</translation></message>
    <message><source>&amp;No</source><translation>&amp;No</translation></message>
</context>
<context>
    <name>QGnomeTheme</name>
    <message><source>&amp;OK</source><translation>&amp;Aceptar</translation></message>
    <message><source>&amp;Cancel</source><translation>&amp;Cancelar</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Guardar</translation></message>
</context>
<context>
    <name>QFileDialog</name>
    <message><source>Save As</source><translation>Guardar como</translation></message>
    <message><source>Look in:</source><translation>Lugar:</translation></message>
    <message><source>File &amp;name:</source><translation>&amp;Nombre:</translation></message>
    <message><source>Files of type:</source><translation>Tipo de archivo:</translation></message>
    <message><source>All Files (*)</source><translation>Todos los archivos (*)</translation></message>
    <message><source>&amp;Save</source><translation>&amp;Guardar</translation></message>
    <message><source>&amp;Open</source><translation>&amp;Abrir</translation></message>
    <message><source>Back</source><translation>Atrás</translation></message>
    <message><source>Go back</source><translation>Volver a la carpeta anterior</translation></message>
    <message><source>Forward</source><translation>Adelante</translation></message>
    <message><source>Go forward</source><translation>Ir a la carpeta siguiente</translation></message>
    <message><source>Parent Directory</source><translation>Carpeta superior</translation></message>
    <message><source>Go to the parent directory</source><translation>Ir a la carpeta superior</translation></message>
    <message><source>Create New Folder</source><translation>Carpeta nueva</translation></message>
    <message><source>Create a New Folder</source><translation>Crear una carpeta</translation></message>
    <message><source>New Folder</source><translation>Carpeta nueva</translation></message>
    <message><source>&amp;New Folder</source><translation>Carpeta &amp;nueva</translation></message>
    <message><source>List View</source><translation>Lista</translation></message>
    <message><source>Change to list view mode</source><translation>Mostrar como lista</translation></message>
    <message><source>Detail View</source><translation>Detalles</translation></message>
    <message><source>Change to detail view mode</source><translation>Mostrar los detalles</translation></message>
    <message><source>Files</source><translation>Archivos</translation></message>
    <message><source>Sidebar</source><translation>Lugares</translation></message>
    <message><source>List of places and bookmarks</source><translation>Lugares y marcadores</translation></message>
    <message><source>Recent Places</source><translation>Lugares recientes</translation></message>
    <message><source>&amp;Rename</source><translation>Cambia&amp;r el nombre</translation></message>
    <message><source>&amp;Delete</source><translation>&amp;Eliminar</translation></message>
    <message><source>Show &amp;hidden files</source><translation>Mostrar los archivos &amp;ocultos</translation></message>
    <message><source>Show </source><translation>Columna: </translation></message>
    <message><source>Remove</source><translation>Quitar</translation></message>
    <message><source>Delete</source><translation>Eliminar</translation></message>
    <message><source>%1 already exists.
Do you want to replace it?</source><translation>%1 ya existe.
¿Se reemplaza el archivo?</translation></message>
    <message><source>Are you sure you want to delete '%1'?</source><translation>¿Se elimina realmente «%1»?</translation></message>
    <message><source>'%1' is write protected.
Do you want to delete it anyway?</source><translation>«%1» está protegido contra escritura.
¿Eliminar de todos modos?</translation></message>
    <message><source>Could not delete directory.</source><translation>No se puede eliminar la carpeta.</translation></message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message><source>Name</source><translation>Nombre</translation></message>
    <message><source>Size</source><translation>Tamaño</translation></message>
    <message><source>Type</source><translation>Tipo</translation></message>
    <message><source>Date Modified</source><translation>Modificado</translation></message>
    <message><source>Computer</source><translation>Equipo</translation></message>
</context>
<context>
    <name>QAbstractFileIconProvider</name>
    <message><source>Drive</source><translation>Unidad</translation></message>
    <message><source>Folder</source><translation>Carpeta</translation></message>
    <message><source>Unknown</source><translation>Desconocido</translation></message>
</context>
<context>
    <name>QLineEdit</name>
    <message><source>&amp;Undo</source><translation>&amp;Deshacer</translation></message>
    <message><source>&amp;Redo</source><translation>&amp;Rehacer</translation></message>
    <message><source>Cu&amp;t</source><translation>Cor&amp;tar</translation></message>
    <message><source>&amp;Copy</source><translation>&amp;Copiar</translation></message>
    <message><source>&amp;Paste</source><translation>&amp;Pegar</translation></message>
    <message><source>Delete</source><translation>Eliminar</translation></message>
    <message><source>Select All</source><translation>Seleccionar todo</translation></message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message><source>&amp;Copy</source><translation>&amp;Copiar</translation></message>
    <message><source>Select All</source><translation>Seleccionar todo</translation></message>
    <message><source>Copy &amp;Link Location</source><translation>Copiar la dirección del en&amp;lace</translation></message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message><source>&amp;Select All</source><translation>&amp;Seleccionar todo</translation></message>
    <message><source>&amp;Step up</source><translation>A&amp;umentar</translation></message>
    <message><source>Step &amp;down</source><translation>&amp;Disminuir</translation></message>
</context>
<context>
    <name>QScrollBar</name>
    <message><source>Scroll here</source><translation>Hasta aquí</translation></message>
    <message><source>Top</source><translation>Principio</translation></message>
    <message><source>Bottom</source><translation>Final</translation></message>
    <message><source>Page up</source><translation>Página hacia arriba</translation></message>
    <message><source>Page down</source><translation>Página hacia abajo</translation></message>
    <message><source>Scroll up</source><translation>Hacia arriba</translation></message>
    <message><source>Scroll down</source><translation>Hacia abajo</translation></message>
    <message><source>Left edge</source><translation>Borde izquierdo</translation></message>
    <message><source>Right edge</source><translation>Borde derecho</translation></message>
    <message><source>Page left</source><translation>Página hacia la izquierda</translation></message>
    <message><source>Page right</source><translation>Página hacia la derecha</translation></message>
    <message><source>Scroll left</source><translation>Hacia la izquierda</translation></message>
    <message><source>Scroll right</source><translation>Hacia la derecha</translation></message>
</context>
<context>
    <name>QComboBox</name>
    <message><source>Open the combo box selection popup</source><translation>Abrir la lista</translation></message>
</context>
<context>
    <name>QAccessibleActionInterface</name>
    <message><source>Press</source><translation>Pulsar</translation></message>
    <message><source>Triggers the action</source><translation>Ejecuta la acción</translation></message>
    <message><source>Toggle</source><translation>Alternar</translation></message>
    <message><source>Toggles the state</source><translation>Alterna el estado</translation></message>
    <message><source>Increase</source><translation>Aumentar</translation></message>
    <message><source>Increase the value</source><translation>Aumenta el valor</translation></message>
    <message><source>Decrease</source><translation>Disminuir</translation></message>
    <message><source>Decrease the value</source><translation>Disminuye el valor</translation></message>
    <message><source>ShowMenu</source><translation>Mostrar el menú</translation></message>
    <message><source>Shows the menu</source><translation>Muestra el menú</translation></message>
    <message><source>SetFocus</source><translation>Dar el foco</translation></message>
    <message><source>Sets the focus</source><translation>Da el foco</translation></message>
</context>
<context>
    <name>QShortcut</name>
    <message><source>Ctrl</source><translation>Ctrl</translation></message>
    <message><source>Shift</source><translation>Mayús</translation></message>
    <message><source>Alt</source><translation>Alt</translation></message>
    <message><source>Del</source><translation>Supr</translation></message>
</context>
</TS>
