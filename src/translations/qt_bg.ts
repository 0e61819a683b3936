<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- Texts of Qt's own that the program shows. -->
<TS version="2.1" language="bg_BG" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Запази</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Запази всички</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Отвори</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Да</translation>
    </message>
    <message>
        <source>Yes to &amp;All</source>
        <translation>Да за &amp;всички</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Не</translation>
    </message>
    <message>
        <source>N&amp;o to All</source>
        <translation>Н&amp;е за всички</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Прекъсни</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Опитай пак</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>Пренебрегни</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Затвори</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отказ</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Отхвърли</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Помощ</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Приложи</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Нулирай</translation>
    </message>
    <message>
        <source>Restore Defaults</source>
        <translation>Начални стойности</translation>
    </message>
</context>
<context>
    <name>QDialogButtonBox</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Отмени</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Повтори</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Изрежи</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копирай</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Пос&amp;тави</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Изтрий</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Избери всичко</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Отмени</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Повтори</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Изрежи</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копирай</translation>
    </message>
    <message>
        <source>Copy &amp;Link Location</source>
        <translation>Копирай &amp;връзката</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Пос&amp;тави</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Изтрий</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Избери всичко</translation>
    </message>
</context>
<context>
    <name>QAbstractSpinBox</name>
    <message>
        <source>&amp;Select All</source>
        <translation>Избери &amp;всичко</translation>
    </message>
    <message>
        <source>&amp;Step up</source>
        <translation>&amp;Нагоре</translation>
    </message>
    <message>
        <source>Step &amp;down</source>
        <translation>Н&amp;адолу</translation>
    </message>
</context>
<context>
    <name>QComboBox</name>
    <message>
        <source>Open the combo box selection list</source>
        <translation>Отваря списъка за избор</translation>
    </message>
    <message>
        <source>False</source>
        <translation>Не</translation>
    </message>
    <message>
        <source>True</source>
        <translation>Да</translation>
    </message>
</context>
<context>
    <name>QScrollBar</name>
    <message>
        <source>Scroll here</source>
        <translation>Превърти дотук</translation>
    </message>
    <message>
        <source>Left edge</source>
        <translation>Ляв край</translation>
    </message>
    <message>
        <source>Right edge</source>
        <translation>Десен край</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Горе</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Долу</translation>
    </message>
    <message>
        <source>Page left</source>
        <translation>Страница наляво</translation>
    </message>
    <message>
        <source>Page right</source>
        <translation>Страница надясно</translation>
    </message>
    <message>
        <source>Page up</source>
        <translation>Страница нагоре</translation>
    </message>
    <message>
        <source>Page down</source>
        <translation>Страница надолу</translation>
    </message>
    <message>
        <source>Scroll left</source>
        <translation>Превърти наляво</translation>
    </message>
    <message>
        <source>Scroll right</source>
        <translation>Превърти надясно</translation>
    </message>
    <message>
        <source>Scroll up</source>
        <translation>Превърти нагоре</translation>
    </message>
    <message>
        <source>Scroll down</source>
        <translation>Превърти надолу</translation>
    </message>
</context>
<context>
    <name>QTabBar</name>
    <message>
        <source>Scroll Left</source>
        <translation>Превърти наляво</translation>
    </message>
    <message>
        <source>Scroll Right</source>
        <translation>Превърти надясно</translation>
    </message>
</context>
<context>
    <name>QShortcut</name>
    <message>
        <source>Space</source>
        <translation>Интервал</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>Show Details...</source>
        <translation>Подробности...</translation>
    </message>
    <message>
        <source>Hide Details...</source>
        <translation>Скрий подробностите...</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>Look in:</source>
        <translation>Папка:</translation>
    </message>
    <message>
        <source>File &amp;name:</source>
        <translation>&amp;Име на файла:</translation>
    </message>
    <message>
        <source>Files of type:</source>
        <translation>Вид файлове:</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Запази като</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Запази</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Отвори</translation>
    </message>
    <message>
        <source>&amp;Choose</source>
        <translation>&amp;Избери</translation>
    </message>
    <message>
        <source>Directory:</source>
        <translation>Папка:</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>Напред</translation>
    </message>
    <message>
        <source>Parent Directory</source>
        <translation>Горна папка</translation>
    </message>
    <message>
        <source>Create New Folder</source>
        <translation>Нова папка</translation>
    </message>
    <message>
        <source>List View</source>
        <translation>Списък</translation>
    </message>
    <message>
        <source>Detail View</source>
        <translation>Подробности</translation>
    </message>
    <message>
        <source>Go back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Go forward</source>
        <translation>Напред</translation>
    </message>
    <message>
        <source>Go to the parent directory</source>
        <translation>Към горната папка</translation>
    </message>
    <message>
        <source>Create a New Folder</source>
        <translation>Създава нова папка</translation>
    </message>
    <message>
        <source>Change to list view mode</source>
        <translation>Показва списък</translation>
    </message>
    <message>
        <source>Change to detail view mode</source>
        <translation>Показва подробности</translation>
    </message>
    <message>
        <source>Sidebar</source>
        <translation>Странична лента</translation>
    </message>
    <message>
        <source>List of places and bookmarks</source>
        <translation>Списък с места и отметки</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлове</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Преименувай</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Изтрий</translation>
    </message>
    <message>
        <source>Show &amp;hidden files</source>
        <translation>Показвай &amp;скритите файлове</translation>
    </message>
    <message>
        <source>&amp;New Folder</source>
        <translation>&amp;Нова папка</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Нова папка</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>Диск</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Папка</translation>
    </message>
    <message>
        <source>My Computer</source>
        <translation>Компютърът</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Всички файлове (*)</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Изтриване</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Махни</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 вече съществува.
Желаете ли да го замените?</translation>
    </message>
    <message>
        <source>%1
File not found.
Please verify the correct file name was given.</source>
        <translation>%1
Файлът не е намерен.
Проверете името му.</translation>
    </message>
    <message>
        <source>%1
Directory not found.
Please verify the correct directory name was given.</source>
        <translation>%1
Папката не е намерена.
Проверете името ѝ.</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is write protected.
Do you want to delete it anyway?</source>
        <translation>„%1“ е защитен от запис.
Желаете ли въпреки това да го изтриете?</translation>
    </message>
    <message>
        <source>Are you sure you want to delete &apos;%1&apos;?</source>
        <translation>Наистина ли желаете да изтриете „%1“?</translation>
    </message>
    <message>
        <source>Could not delete directory.</source>
        <translation>Папката не може да бъде изтрита.</translation>
    </message>
    <message>
        <source>Recent Places</source>
        <translation>Последни места</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Computer</source>
        <translation>Компютърът</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Име</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Вид</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Вид</translation>
    </message>
    <message>
        <source>Date Modified</source>
        <translation>Променен</translation>
    </message>
    <message>
        <source>%1 TB</source>
        <translation>%1 TB</translation>
    </message>
    <message>
        <source>%1 GB</source>
        <translation>%1 GB</translation>
    </message>
    <message>
        <source>%1 MB</source>
        <translation>%1 MB</translation>
    </message>
    <message>
        <source>%1 KB</source>
        <translation>%1 KB</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 байта</translation>
    </message>
</context>
</TS>
