<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="bg_BG" sourcelanguage="en">
<context>
    <name>FixedText</name>
    <message>
        <source>The recording is larger than a file may be</source>
        <translation>Записът е по-голям, отколкото може да бъде един файл</translation>
    </message>
    <message>
        <source>Couldn&apos;t get target application info!</source>
        <translation>Данните за програмата на контролера не могат да бъдат прочетени!</translation>
    </message>
    <message>
        <source>Bulgarian</source>
        <translation>Български</translation>
    </message>
    <message>
        <source>English</source>
        <translation>Английски</translation>
    </message>
    <message>
        <source>name character</source>
        <translation>знак в име</translation>
    </message>
    <message>
        <source>Element tag</source>
        <translation>Етикетът на елемент</translation>
    </message>
    <message>
        <source>Element end tag</source>
        <translation>Крайният етикет на елемент</translation>
    </message>
    <message>
        <source>! tag</source>
        <translation>етикет с „!“</translation>
    </message>
    <message>
        <source>comment tag</source>
        <translation>етикет за коментар</translation>
    </message>
    <message>
        <source>The recording has not been saved and will be lost!
Do you want to continue?</source>
        <translation>Записът не е запазен и ще бъде изгубен!
Желаете ли да продължите?</translation>
    </message>
    <message>
        <source>Low GAS Pressure</source>
        <translation>Ниско налягане на газа</translation>
    </message>
    <message>
        <source>Coolant Temperature too low</source>
        <translation>Твърде ниска температура на охл. течност</translation>
    </message>
    <message>
        <source>Very low RPM </source>
        <translation>Много ниски обороти </translation>
    </message>
    <message>
        <source>ECU lack of pulses</source>
        <translation>Липсват импулси към контролера</translation>
    </message>
    <message>
        <source>Temporary DTC 04</source>
        <translation>Временна грешка DTC 04</translation>
    </message>
    <message>
        <source>Temporary DTC 05</source>
        <translation>Временна грешка DTC 05</translation>
    </message>
    <message>
        <source>Temporary DTC 06</source>
        <translation>Временна грешка DTC 06</translation>
    </message>
    <message>
        <source>Temporary DTC 07</source>
        <translation>Временна грешка DTC 07</translation>
    </message>
    <message>
        <source>Start on GAS</source>
        <translation>Запалване на газ</translation>
    </message>
    <message>
        <source>Temporary DTC 09</source>
        <translation>Временна грешка DTC 09</translation>
    </message>
    <message>
        <source>Temporary DTC 10</source>
        <translation>Временна грешка DTC 10</translation>
    </message>
    <message>
        <source>Temporary DTC 11</source>
        <translation>Временна грешка DTC 11</translation>
    </message>
    <message>
        <source>Temporary DTC 12</source>
        <translation>Временна грешка DTC 12</translation>
    </message>
    <message>
        <source>Temporary DTC 13</source>
        <translation>Временна грешка DTC 13</translation>
    </message>
    <message>
        <source>Temporary DTC 14</source>
        <translation>Временна грешка DTC 14</translation>
    </message>
    <message>
        <source>Temporary DTC 15</source>
        <translation>Временна грешка DTC 15</translation>
    </message>
    <message>
        <source>Erasing...</source>
        <translation>Изтриване...</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Изчакване</translation>
    </message>
    <message>
        <source>Erasing current firmware...</source>
        <translation>Изтриване на сегашния фърмуер...</translation>
    </message>
    <message>
        <source>Downloading selected firmware...</source>
        <translation>Записване на избрания фърмуер...</translation>
    </message>
    <message>
        <source>Ready</source>
        <translation>Готово</translation>
    </message>
    <message>
        <source>Do you want to erase the firmware of the ECU?
It will not work until new firmware has been downloaded.

ECU: %1</source>
        <translation>Желаете ли да изтриете фърмуера на контролера?
Той няма да работи, докато не бъде записан нов фърмуер.

Контролер: %1</translation>
    </message>
    <message>
        <source>EMPTY</source>
        <translation>ПРАЗНО</translation>
    </message>
    <message>
        <source>NONE</source>
        <translation>НЯМА</translation>
    </message>
    <message>
        <source>TPS corrections</source>
        <translation>TPS корекции</translation>
    </message>
    <message>
        <source>Return to IDLE</source>
        <translation>Връщане на празен ход</translation>
    </message>
    <message>
        <source>RPM, 1/min</source>
        <translation>Обороти, 1/min</translation>
    </message>
    <message>
        <source>Sorry! The specified COM port is busy!</source>
        <translation>Съжаляваме! Избраният COM порт е зает!</translation>
    </message>
</context>
<context>
    <name>zelorgas::CAboutDlg</name>
    <message>
        <source>About %1</source>
        <translation>Относно %1</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Продукт</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Ревизия</translation>
    </message>
    <message>
        <source>Build</source>
        <translation>Издание</translation>
    </message>
    <message>
        <source>Built</source>
        <translation>Създадена на</translation>
    </message>
</context>
<context>
    <name>zelorgas::CBootDlg</name>
    <message>
        <source>%1 bytes</source>
        <translation>%1 байта</translation>
    </message>
    <message>
        <source>%1 min %2 s left</source>
        <translation>остават %1 min %2 s</translation>
    </message>
    <message numerus="yes">
        <source>%n s left</source>
        <translation>
            <numerusform>остава %n s</numerusform>
            <numerusform>остават %n s</numerusform>
        </translation>
    </message>
    <message>
        <source>In its bootloader (%1)</source>
        <translation>В зареждащата програма (%1)</translation>
    </message>
    <message>
        <source>firmware %1</source>
        <translation>фърмуер %1</translation>
    </message>
    <message>
        <source>Firmware update</source>
        <translation>Обновяване на фърмуера</translation>
    </message>
    <message>
        <source>ECU</source>
        <translation>Контролер</translation>
    </message>
    <message>
        <source>New firmware</source>
        <translation>Нов фърмуер</translation>
    </message>
    <message>
        <source>&amp;Version</source>
        <translation>&amp;Версия</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Версия на фърмуера</translation>
    </message>
    <message>
        <source>The images P042*.ebi in %1</source>
        <translation>Образите P042*.ebi в %1</translation>
    </message>
    <message>
        <source>Look a&amp;gain</source>
        <translation>Търси &amp;пак</translation>
    </message>
    <message>
        <source>Look again for images</source>
        <translation>Повторно търсене на образи</translation>
    </message>
    <message>
        <source>Looks again for images in %1</source>
        <translation>Търси отново образи в %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>Update</source>
        <translation>Обновяване</translation>
    </message>
    <message>
        <source>Idle</source>
        <translation>Изчакване</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Ход на обновяването</translation>
    </message>
    <message>
        <source>Erase &amp;only</source>
        <translation>Само &amp;изтрий</translation>
    </message>
    <message>
        <source>Erases the firmware of the ECU without programming another</source>
        <translation>Изтрива фърмуера на контролера, без да записва друг</translation>
    </message>
    <message>
        <source>&amp;Erase and program</source>
        <translation>Изтрий и &amp;запиши</translation>
    </message>
    <message>
        <source>Replaces the firmware of the ECU by the chosen version</source>
        <translation>Заменя фърмуера на контролера с избраната версия</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>За&amp;твори</translation>
    </message>
    <message>
        <source>Closes the window; not during an update</source>
        <translation>Затваря прозореца; не по време на обновяване</translation>
    </message>
    <message>
        <source>No image was found</source>
        <translation>Няма намерен образ</translation>
    </message>
    <message>
        <source>Choose a version</source>
        <translation>Изберете версия</translation>
    </message>
    <message>
        <source>Put the firmware image (P042*.ebi) into the folder %1, then look again.</source>
        <translation>Поставете образа на фърмуера (P042*.ebi) в папката %1 и потърсете пак.</translation>
    </message>
    <message>
        <source>Switch the ignition on and leave the engine off. Charge a weak battery, and keep the cable plugged in: once begun, the update has to go through to its end.</source>
        <translation>Включете контакта, без да палите двигателя. Заредете слаб акумулатор и не вадете кабела: веднъж започнато, обновяването трябва да стигне до края.</translation>
    </message>
    <message>
        <source>%1 of %2</source>
        <translation>%1 от %2</translation>
    </message>
    <message>
        <source>Do not unplug the cable and do not switch the ignition off now. The window can be closed again when this has ended.</source>
        <translation>Сега не вадете кабела и не изключвайте контакта. Прозорецът може да се затвори отново, когато това свърши.</translation>
    </message>
    <message>
        <source>The new firmware is in the ECU.</source>
        <translation>Новият фърмуер е в контролера.</translation>
    </message>
    <message>
        <source>The ECU has no firmware now. It waits in its bootloader: program a version before you drive.</source>
        <translation>Сега контролерът няма фърмуер. Той чака в зареждащата си програма: запишете версия, преди да потеглите.</translation>
    </message>
    <message>
        <source>The ECU may be without firmware now. It waits in its bootloader: put right what went wrong, then erase and program again.</source>
        <translation>Възможно е контролерът да е без фърмуер. Той чака в зареждащата си програма: отстранете повредата, после изтрийте и запишете отново.</translation>
    </message>
    <message>
        <source>Nothing has been erased.</source>
        <translation>Нищо не е изтрито.</translation>
    </message>
    <message>
        <source>The new firmware is in the ECU, which is about to start it. The program connects again by itself.</source>
        <translation>Новият фърмуер е в контролера, който ей сега ще го стартира. Програмата се свързва отново сама.</translation>
    </message>
    <message>
        <source>The new firmware is in the ECU. Switch the ignition off, wait ten seconds and switch it on again: the program then connects by itself.</source>
        <translation>Новият фърмуер е в контролера. Изключете контакта, изчакайте десет секунди и го включете отново: програмата ще се свърже сама.</translation>
    </message>
    <message>
        <source>Storing the configuration...</source>
        <translation>Запазване на конфигурацията...</translation>
    </message>
    <message>
        <source>Nothing has been erased. The ECU is about to start its firmware again.</source>
        <translation>Нищо не е изтрито. Контролерът ей сега ще стартира отново фърмуера си.</translation>
    </message>
    <message>
        <source>Nothing has been erased, but the ECU waits in its bootloader. Switch the ignition off, wait ten seconds and switch it on again.</source>
        <translation>Нищо не е изтрито, но контролерът чака в зареждащата си програма. Изключете контакта, изчакайте десет секунди и го включете отново.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CCellChangeDlg</name>
    <message>
        <source>Modify Grid Area</source>
        <translation>Промяна на област от картата</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Режим</translation>
    </message>
    <message>
        <source>&amp;Percentage</source>
        <translation>&amp;Процент</translation>
    </message>
    <message>
        <source>&amp;Linear</source>
        <translation>&amp;Линейно</translation>
    </message>
    <message>
        <source>&amp;Absolute</source>
        <translation>&amp;Абсолютно</translation>
    </message>
    <message>
        <source>&amp;Value</source>
        <translation>&amp;Стойност</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Стойност</translation>
    </message>
    <message>
        <source>Selected cells: %1</source>
        <translation>Избрани клетки: %1</translation>
    </message>
    <message>
        <source>Each coefficient by so many per cent, up or down.</source>
        <translation>Всеки коефициент се променя с толкова процента нагоре или надолу.</translation>
    </message>
    <message>
        <source>So much added to each coefficient.</source>
        <translation>Към всеки коефициент се прибавя толкова.</translation>
    </message>
    <message>
        <source>The same coefficient in all cells.</source>
        <translation>Еднакъв коефициент във всички клетки.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CCellTable</name>
    <message>
        <source>New value of the cell</source>
        <translation>Нова стойност на клетката</translation>
    </message>
</context>
<context>
    <name>zelorgas::CChannelRow</name>
    <message>
        <source>1000/min</source>
        <translation>1000/min</translation>
    </message>
    <message>
        <source>Engine speed</source>
        <translation>Обороти</translation>
    </message>
    <message>
        <source>10 °C</source>
        <translation>10 °C</translation>
    </message>
    <message>
        <source>Gas temperature</source>
        <translation>Температура на газа</translation>
    </message>
    <message>
        <source>Coolant temperature</source>
        <translation>Температура на охладителната течност</translation>
    </message>
    <message>
        <source>bar</source>
        <translation>bar</translation>
    </message>
    <message>
        <source>Gas pressure</source>
        <translation>Налягане на газа</translation>
    </message>
    <message>
        <source>Manifold pressure</source>
        <translation>Налягане в колектора</translation>
    </message>
    <message>
        <source>Gas pressure above the manifold&apos;s</source>
        <translation>Налягане на газа над това в колектора</translation>
    </message>
    <message>
        <source>0.1 V</source>
        <translation>0.1 V</translation>
    </message>
    <message>
        <source>Lambda sensor</source>
        <translation>Ламбда сонда</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Second lambda sensor</source>
        <translation>Втора ламбда сонда</translation>
    </message>
    <message>
        <source>Battery voltage</source>
        <translation>Напрежение на акумулатора</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Petrol injection time</source>
        <translation>Време на впръскване на бензин</translation>
    </message>
    <message>
        <source>Gas injection time</source>
        <translation>Време на впръскване на газ</translation>
    </message>
    <message>
        <source>10 %</source>
        <translation>10 %</translation>
    </message>
    <message>
        <source>Throttle position</source>
        <translation>Положение на дроселовата клапа</translation>
    </message>
    <message>
        <source>%1 at the cursor</source>
        <translation>%1 при курсора</translation>
    </message>
</context>
<context>
    <name>zelorgas::CDifferenceTable</name>
    <message>
        <source>Cl&amp;ose</source>
        <translation>За&amp;твори</translation>
    </message>
    <message>
        <source>Shows the notes again</source>
        <translation>Показва отново бележките</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Разлики</translation>
    </message>
    <message>
        <source>%1 and %2 agree.</source>
        <translation>%1 и %2 съвпадат.</translation>
    </message>
    <message>
        <source>%1 and %2 differ in 1 value.</source>
        <translation>%1 и %2 се различават по 1 стойност.</translation>
    </message>
    <message>
        <source>%1 and %2 differ in %3 values.</source>
        <translation>%1 и %2 се различават по %3 стойности.</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Стойност</translation>
    </message>
    <message>
        <source>Register %1</source>
        <translation>Регистър %1</translation>
    </message>
</context>
<context>
    <name>zelorgas::CEcuCard</name>
    <message>
        <source>ECU</source>
        <translation>Контролер</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Сериен номер</translation>
    </message>
    <message>
        <source>Input registers 35 and 36</source>
        <translation>Входни регистри 35 и 36</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Версия на фърмуера</translation>
    </message>
    <message>
        <source>Input register 33</source>
        <translation>Входен регистър 33</translation>
    </message>
    <message>
        <source>Hardware version</source>
        <translation>Версия на хардуера</translation>
    </message>
    <message>
        <source>Input register 32</source>
        <translation>Входен регистър 32</translation>
    </message>
    <message>
        <source>Vendor</source>
        <translation>Производител</translation>
    </message>
    <message>
        <source>Device identification, object 0</source>
        <translation>Идентификация на устройството, обект 0</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>Продукт</translation>
    </message>
    <message>
        <source>Device identification, object 1</source>
        <translation>Идентификация на устройството, обект 1</translation>
    </message>
    <message>
        <source>Revision</source>
        <translation>Ревизия</translation>
    </message>
    <message>
        <source>Device identification, object 2</source>
        <translation>Идентификация на устройството, обект 2</translation>
    </message>
    <message>
        <source>Board information</source>
        <translation>Данни за платката</translation>
    </message>
    <message>
        <source>Holding registers 16384 to 16386</source>
        <translation>Регистри 16384 до 16386</translation>
    </message>
</context>
<context>
    <name>zelorgas::CErrSheet</name>
    <message>
        <source>Stored errors</source>
        <translation>Съхранени грешки</translation>
    </message>
    <message>
        <source>The ECU has stored errors of this kind.</source>
        <translation>Контролерът е съхранил такива грешки.</translation>
    </message>
    <message>
        <source>There are no errors.</source>
        <translation>Няма грешки.</translation>
    </message>
    <message>
        <source>The errors have not been read.</source>
        <translation>Грешките не са прочетени.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CErrorPage</name>
    <message>
        <source>%1 errors: how often each has occurred, and its name</source>
        <translation>%1 грешки: колко пъти е възникнала всяка и името ѝ</translation>
    </message>
    <message>
        <source>How often each error has occurred, and its name.
Select one to read its description.</source>
        <translation>Колко пъти е възникнала всяка грешка и името ѝ.
Изберете една, за да прочетете описанието ѝ.</translation>
    </message>
    <message>
        <source>Description of the selected error</source>
        <translation>Описание на избраната грешка</translation>
    </message>
</context>
<context>
    <name>zelorgas::CFileBrowser</name>
    <message>
        <source>Folders</source>
        <translation>Папки</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлове</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Име</translation>
    </message>
    <message>
        <source>Changed</source>
        <translation>Променен</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Бележки</translation>
    </message>
    <message>
        <source>This folder has no %1 files.</source>
        <translation>В тази папка няма файлове %1.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CFileDlg</name>
    <message>
        <source>File name</source>
        <translation>Име на файла</translation>
    </message>
    <message>
        <source>&amp;Open</source>
        <translation>&amp;Отвори</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Запази</translation>
    </message>
    <message>
        <source>File &amp;name</source>
        <translation>&amp;Име на файла</translation>
    </message>
</context>
<context>
    <name>zelorgas::CGridTable</name>
    <message>
        <source>Correction grid</source>
        <translation>Коригираща карта</translation>
    </message>
    <message>
        <source>%1 ms, %2 1/min
GridRow[%3], register %4</source>
        <translation>%1 ms, %2 1/min
GridRow[%3], регистър %4</translation>
    </message>
</context>
<context>
    <name>zelorgas::CGuideWindow</name>
    <message>
        <source>Guide</source>
        <translation>Ръководство</translation>
    </message>
    <message>
        <source>Chapters</source>
        <translation>Глави</translation>
    </message>
    <message>
        <source>Text of the chapter</source>
        <translation>Текст на главата</translation>
    </message>
    <message>
        <source>The guide is in English only.</source>
        <translation>Ръководството е само на английски език.</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Назад</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Съдържание</translation>
    </message>
    <message>
        <source>Search the guide</source>
        <translation>Търсене в ръководството</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Търсене</translation>
    </message>
    <message>
        <source>Finds words in all chapters (Ctrl+F); Enter goes on to the next place</source>
        <translation>Намира думи във всички глави (Ctrl+F); Enter продължава до следващото място</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Не е намерено</translation>
    </message>
</context>
<context>
    <name>zelorgas::CMainFrame</name>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Ръководство</translation>
    </message>
    <message>
        <source>The guide&apos;s chapter on the page that is open</source>
        <translation>Главата от ръководството за отворената страница</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Без име</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Конфигурация</translation>
    </message>
    <message>
        <source>Correction grid</source>
        <translation>Коригираща карта</translation>
    </message>
    <message>
        <source>Oscilloscope</source>
        <translation>Осцилоскоп</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Грешки</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлове</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>&amp;Store configuration...</source>
        <translation>&amp;Запази конфигурацията...</translation>
    </message>
    <message>
        <source>Stores the configuration of the ECU in a file</source>
        <translation>Запазва конфигурацията на контролера във файл</translation>
    </message>
    <message>
        <source>&amp;Load configuration...</source>
        <translation>За&amp;реди конфигурация...</translation>
    </message>
    <message>
        <source>Shows the stored configurations</source>
        <translation>Показва запазените конфигурации</translation>
    </message>
    <message>
        <source>&amp;Recent files</source>
        <translation>&amp;Последни файлове</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Изход</translation>
    </message>
    <message>
        <source>Disconnects and ends the program</source>
        <translation>Прекъсва връзката и затваря програмата</translation>
    </message>
    <message>
        <source>&amp;ECU</source>
        <translation>&amp;Контролер</translation>
    </message>
    <message>
        <source>&amp;Connect</source>
        <translation>&amp;Свържи</translation>
    </message>
    <message>
        <source>Opens the selected port and identifies the ECU</source>
        <translation>Отваря избрания порт и разпознава контролера</translation>
    </message>
    <message>
        <source>&amp;Disconnect</source>
        <translation>&amp;Прекъсни</translation>
    </message>
    <message>
        <source>Ends the connection to the ECU</source>
        <translation>Прекратява връзката с контролера</translation>
    </message>
    <message>
        <source>&amp;Refresh</source>
        <translation>&amp;Обнови</translation>
    </message>
    <message>
        <source>Reads the whole configuration from the ECU again</source>
        <translation>Прочита отново цялата конфигурация от контролера</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Изглед</translation>
    </message>
    <message>
        <source>Injection times by &amp;cylinder</source>
        <translation>Времена на впръскване по &amp;цилиндри</translation>
    </message>
    <message>
        <source>Reads and shows the petrol and gas injection times of every cylinder</source>
        <translation>Прочита и показва времената на впръскване на бензин и газ за всеки цилиндър</translation>
    </message>
    <message>
        <source>&amp;Full screen</source>
        <translation>Цял &amp;екран</translation>
    </message>
    <message>
        <source>Uses the whole screen</source>
        <translation>Използва целия екран</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>И&amp;нструменти</translation>
    </message>
    <message>
        <source>&amp;Firmware update...</source>
        <translation>Обновяване на &amp;фърмуера...</translation>
    </message>
    <message>
        <source>Erases and programs the firmware of the ECU on the selected port</source>
        <translation>Изтрива и записва фърмуера на контролера на избрания порт</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>Помо&amp;щ</translation>
    </message>
    <message>
        <source>&amp;About %1...</source>
        <translation>&amp;Относно %1...</translation>
    </message>
    <message>
        <source>%1 was not found.</source>
        <translation>%1 не е намерен.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CMapRefsDlg</name>
    <message>
        <source>Grid Cell Centers</source>
        <translation>Центрове на клетките</translation>
    </message>
    <message>
        <source>REVS. columns (1/min)</source>
        <translation>ОБОРОТИ, колони (1/min)</translation>
    </message>
    <message>
        <source>Tinj[Petrol] rows (ms)</source>
        <translation>Tвпр[Бензин], редове (ms)</translation>
    </message>
    <message>
        <source>%1[%2], register %3</source>
        <translation>%1[%2], регистър %3</translation>
    </message>
</context>
<context>
    <name>zelorgas::CNudgeBar</name>
    <message>
        <source>Live cell</source>
        <translation>Текуща клетка</translation>
    </message>
    <message>
        <source>Per cent by which the live cell is nudged</source>
        <translation>Процент, с който се изменя текущата клетка</translation>
    </message>
    <message>
        <source>The live cell is changed by so much, the cells around it by half of it</source>
        <translation>Текущата клетка се изменя с толкова, а съседните ѝ – с половината</translation>
    </message>
    <message>
        <source>Live: %1 ms, %2 1/min, %3</source>
        <translation>Текущо: %1 ms, %2 1/min, %3</translation>
    </message>
    <message>
        <source>Live: %1</source>
        <translation>Текущо: %1</translation>
    </message>
</context>
<context>
    <name>zelorgas::CParameterRow</name>
    <message>
        <source>0 to 65535</source>
        <translation>0 до 65535</translation>
    </message>
    <message>
        <source>0.0 to 6553.5 mm</source>
        <translation>0.0 до 6553.5 mm</translation>
    </message>
    <message>
        <source>Unknown: %1</source>
        <translation>Непознат: %1</translation>
    </message>
    <message>
        <source>The ECU has not taken all of it. Applied before: %1</source>
        <translation>Контролерът не е приел всичко. Приложено преди: %1</translation>
    </message>
    <message>
        <source>unknown</source>
        <translation>неизвестно</translation>
    </message>
    <message>
        <source>%1 in mm</source>
        <translation>%1 в mm</translation>
    </message>
    <message>
        <source>%1: %2
Register %3</source>
        <translation>%1: %2
Регистър %3</translation>
    </message>
    <message>
        <source>%1 cannot be &quot;%2&quot;: %3.</source>
        <translation>%1 не може да бъде „%2“: %3.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CSimulatedMenu</name>
    <message>
        <source>&amp;Simulated ECU</source>
        <translation>&amp;Симулиран контролер</translation>
    </message>
    <message>
        <source>&amp;Unplug the ECU</source>
        <translation>&amp;Откачи контролера</translation>
    </message>
    <message>
        <source>The ECU falls silent. Plugged in again, the link comes back by itself.</source>
        <translation>Контролерът замлъква. След повторно включване връзката се възстановява сама.</translation>
    </message>
    <message>
        <source>Unplug the &amp;adapter</source>
        <translation>Извади &amp;адаптера</translation>
    </message>
    <message>
        <source>The serial port vanishes. It is opened again once it is back.</source>
        <translation>Серийният порт изчезва. Отваря се отново, щом се появи.</translation>
    </message>
    <message>
        <source>&amp;Restart the ECU</source>
        <translation>&amp;Рестартирай контролера</translation>
    </message>
    <message>
        <source>The ECU restarts; the program writes the configuration back.</source>
        <translation>Контролерът се рестартира; програмата записва конфигурацията обратно в него.</translation>
    </message>
    <message>
        <source>Put it into its &amp;bootloader</source>
        <translation>Премини в &amp;зареждащата програма</translation>
    </message>
    <message>
        <source>As after an update that broke off: connecting then leads to the firmware update.</source>
        <translation>Като след прекъснато обновяване: свързването води до обновяване на фърмуера.</translation>
    </message>
    <message>
        <source>&amp;Write a demo firmware image</source>
        <translation>Създай &amp;пробен образ на фърмуер</translation>
    </message>
    <message>
        <source>Puts an image for the simulated ECU, and no other, where the firmware update looks for images.</source>
        <translation>Поставя образ само за симулирания контролер там, където обновяването търси образи.</translation>
    </message>
    <message>
        <source>The image was written to
%1
The firmware update offers it for the simulated ECU only.</source>
        <translation>Образът е записан в
%1
Обновяването го предлага само за симулирания контролер.</translation>
    </message>
    <message>
        <source>The image could not be written: %1</source>
        <translation>Образът не може да бъде записан: %1</translation>
    </message>
</context>
<context>
    <name>zelorgas::CStatusLine</name>
    <message>
        <source>Status</source>
        <translation>Състояние</translation>
    </message>
    <message>
        <source>State of the link to the ECU</source>
        <translation>Състояние на връзката с контролера</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Съобщение</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Сериен порт</translation>
    </message>
    <message>
        <source>Firmware version</source>
        <translation>Версия на фърмуера</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Сериен номер</translation>
    </message>
    <message>
        <source>Serial number of the ECU</source>
        <translation>Сериен номер на контролера</translation>
    </message>
    <message>
        <source>Line quality</source>
        <translation>Качество на линията</translation>
    </message>
    <message>
        <source>Requests sent, failed ones, rounds of polling a second</source>
        <translation>Изпратени заявки, неуспешни заявки, обиколки на четене в секунда</translation>
    </message>
    <message>
        <source>Administrator mode</source>
        <translation>Администраторски режим</translation>
    </message>
    <message>
        <source>Administrator</source>
        <translation>Администратор</translation>
    </message>
    <message>
        <source>Connecting on %1...</source>
        <translation>Свързване: %1...</translation>
    </message>
    <message>
        <source>Disconnecting...</source>
        <translation>Прекъсване...</translation>
    </message>
    <message>
        <source>Firmware %1</source>
        <translation>Фърмуер %1</translation>
    </message>
    <message>
        <source>%1 sent, %2 failed, %3/s</source>
        <translation>%1 изпр., %2 неусп., %3/s</translation>
    </message>
</context>
<context>
    <name>zelorgas::CStoreDlg</name>
    <message>
        <source>Store the configuration</source>
        <translation>Запазване на конфигурацията</translation>
    </message>
    <message>
        <source>The folder of the car&apos;s make; it is created where it does not exist</source>
        <translation>Папката на марката автомобил; създава се, ако я няма</translation>
    </message>
    <message>
        <source>&amp;Store</source>
        <translation>&amp;Запази</translation>
    </message>
    <message>
        <source>&amp;Gas</source>
        <translation>&amp;Газ</translation>
    </message>
    <message>
        <source>Folder of the &amp;make</source>
        <translation>Папка на &amp;марката</translation>
    </message>
    <message>
        <source>Store in a &amp;file</source>
        <translation>Запази във &amp;файл</translation>
    </message>
    <message>
        <source>The next dialog begins with the same choice</source>
        <translation>Следващият диалог започва със същия избор</translation>
    </message>
    <message>
        <source>As before: %1</source>
        <translation>Както преди: %1</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
</context>
<context>
    <name>zelorgas::CSurface</name>
    <message>
        <source>Correction grid as a surface</source>
        <translation>Коригиращата карта като повърхнина</translation>
    </message>
    <message>
        <source>Drag or arrow keys: turn. Wheel, + and -: zoom.
Double click or Home: the first view.</source>
        <translation>Влачене или стрелки: завъртане. Колелце, + и -: мащаб.
Двойно щракване или Home: първоначален изглед.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTPSIdle</name>
    <message>
        <source>%1: %2
Register %3</source>
        <translation>%1: %2
Регистър %3</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTPSgen</name>
    <message>
        <source>Throttle sensor</source>
        <translation>Датчик за клапата</translation>
    </message>
    <message>
        <source>Throttle position at this moment</source>
        <translation>Положение на дроселовата клапа в момента</translation>
    </message>
    <message>
        <source>&amp;Write end points</source>
        <translation>&amp;Запиши крайните точки</translation>
    </message>
    <message>
        <source>Write end points</source>
        <translation>Запиши крайните точки</translation>
    </message>
    <message>
        <source>Writes both readings to the ECU (Enter in one of the fields)</source>
        <translation>Записва двете показания в контролера (Enter в някое от полетата)</translation>
    </message>
    <message>
        <source>Closed throttle</source>
        <translation>Затворена клапа</translation>
    </message>
    <message>
        <source>Full throttle</source>
        <translation>Отворена клапа</translation>
    </message>
    <message>
        <source>At this moment</source>
        <translation>В момента</translation>
    </message>
    <message>
        <source>%1: %2
Register %3</source>
        <translation>%1: %2
Регистър %3</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTabConfiguration</name>
    <message>
        <source>Configuration</source>
        <translation>Конфигурация</translation>
    </message>
    <message>
        <source>Search the parameters</source>
        <translation>Търсене в параметрите</translation>
    </message>
    <message>
        <source>Words of a parameter&apos;s name or meaning (Ctrl+F)</source>
        <translation>Думи от името или значението на параметър (Ctrl+F)</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Търсене</translation>
    </message>
    <message>
        <source>Groups of parameters</source>
        <translation>Групи параметри</translation>
    </message>
    <message>
        <source>What a complete configuration has to have</source>
        <translation>Какво трябва да съдържа една пълна конфигурация</translation>
    </message>
    <message>
        <source>Vehicle</source>
        <translation>Автомобил</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Параметри</translation>
    </message>
    <message>
        <source>Gas pressure at this moment</source>
        <translation>Налягане на газа в момента</translation>
    </message>
    <message>
        <source>Lambda 1 at this moment</source>
        <translation>Ламбда 1 в момента</translation>
    </message>
    <message>
        <source>Lambda 2 at this moment</source>
        <translation>Ламбда 2 в момента</translation>
    </message>
    <message>
        <source>Gas pressure from an on/off switch</source>
        <translation>Налягане на газа от пресостат (вкл./изкл.)</translation>
    </message>
    <message>
        <source>What the list writes</source>
        <translation>Какво записва списъкът</translation>
    </message>
    <message>
        <source>Entries of the list of gas pressure sensors are then written as those of an on/off switch</source>
        <translation>Изборът от списъка с датчици за налягане на газа се записва тогава като за пресостат</translation>
    </message>
    <message>
        <source>Live</source>
        <translation>Текущо</translation>
    </message>
    <message>
        <source>%1 bar</source>
        <translation>%1 bar</translation>
    </message>
    <message>
        <source>%1 V</source>
        <translation>%1 V</translation>
    </message>
    <message>
        <source>Nothing here has these words in its name or meaning.</source>
        <translation>Нищо тук няма тези думи в името или значението си.</translation>
    </message>
    <message>
        <source>Found: %1</source>
        <translation>Намерени: %1</translation>
    </message>
    <message>
        <source>The configuration is complete.</source>
        <translation>Конфигурацията е пълна.</translation>
    </message>
    <message>
        <source>The configuration lacks:</source>
        <translation>В конфигурацията липсват:</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTabDiagnostics</name>
    <message>
        <source>Oscilloscope</source>
        <translation>Осцилоскоп</translation>
    </message>
    <message>
        <source>Graph of the live signals</source>
        <translation>Графика на текущите сигнали</translation>
    </message>
    <message>
        <source>Seconds before the newest sample</source>
        <translation>Секунди преди последното измерване</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Бележки</translation>
    </message>
    <message>
        <source>Notes to this recording</source>
        <translation>Бележки към този запис</translation>
    </message>
    <message>
        <source>&amp;Stop</source>
        <translation>&amp;Спри</translation>
    </message>
    <message>
        <source>Ti&amp;me span</source>
        <translation>Ин&amp;тервал</translation>
    </message>
    <message>
        <source>Time span</source>
        <translation>Интервал от време</translation>
    </message>
    <message>
        <source>How much time the graph shows; up doubles it, down halves it</source>
        <translation>Колко време показва графиката; нагоре го удвоява, надолу го намалява наполовина</translation>
    </message>
    <message>
        <source>S&amp;ave...</source>
        <translation>&amp;Запази...</translation>
    </message>
    <message>
        <source>Saves the recording and its notes to a file</source>
        <translation>Запазва записа и бележките към него във файл</translation>
    </message>
    <message>
        <source>&amp;Load...</source>
        <translation>За&amp;реди...</translation>
    </message>
    <message>
        <source>Shows a saved recording in place of this one</source>
        <translation>Показва запазен запис вместо този</translation>
    </message>
    <message>
        <source>E&amp;xport...</source>
        <translation>&amp;Експорт...</translation>
    </message>
    <message>
        <source>Saves the graph as a picture, or the values for a spreadsheet</source>
        <translation>Запазва графиката като картина или стойностите за електронна таблица</translation>
    </message>
    <message>
        <source>%1 s before the newest</source>
        <translation>%1 s преди последното</translation>
    </message>
    <message>
        <source>Newest sample</source>
        <translation>Последно измерване</translation>
    </message>
    <message>
        <source>&amp;Run</source>
        <translation>&amp;Пусни</translation>
    </message>
    <message>
        <source>Stops recording; the graph can then be zoomed and read out</source>
        <translation>Спира записа; тогава графиката може да се мащабира и отчита</translation>
    </message>
    <message>
        <source>Goes on recording</source>
        <translation>Продължава записа</translation>
    </message>
    <message>
        <source>%1 has been written.</source>
        <translation>%1 е записан.</translation>
    </message>
    <message>
        <source>Too long to be shown whole; saving keeps all of it.</source>
        <translation>Твърде дълго, за да се покаже цялото; при запис се пази изцяло.</translation>
    </message>
    <message>
        <source>%1 exists.
Do you want to replace it?</source>
        <translation>%1 съществува.
Искате ли да го замените?</translation>
    </message>
    <message>
        <source>%1 could not be written.</source>
        <translation>%1 не може да бъде записан.</translation>
    </message>
    <message>
        <source>Save the recording</source>
        <translation>Запазване на записа</translation>
    </message>
    <message>
        <source>Load a recording</source>
        <translation>Зареждане на запис</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Експорт</translation>
    </message>
    <message>
        <source>Picture (*.png)</source>
        <translation>Картина (*.png)</translation>
    </message>
    <message>
        <source>Document (*.pdf)</source>
        <translation>Документ (*.pdf)</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>Стойности, разделени със запетая (*.csv)</translation>
    </message>
    <message>
        <source>Mouse or arrow keys: read out. Wheel or + -: zoom. Drag: move.</source>
        <translation>Мишка или стрелки: отчитане. Колелце или + -: мащаб. Влачене: местене.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTabErrors</name>
    <message>
        <source>Errors</source>
        <translation>Грешки</translation>
    </message>
    <message>
        <source>&amp;Read errors again</source>
        <translation>П&amp;рочети отново грешките</translation>
    </message>
    <message>
        <source>Reads the stored errors from the ECU again</source>
        <translation>Прочита отново съхранените грешки от контролера</translation>
    </message>
    <message>
        <source>De&amp;lete error</source>
        <translation>Изтрий &amp;грешката</translation>
    </message>
    <message>
        <source>Deletes the selected error in the ECU</source>
        <translation>Изтрива избраната грешка в контролера</translation>
    </message>
    <message>
        <source>Delete &amp;all errors</source>
        <translation>Изтрий &amp;всички грешки</translation>
    </message>
    <message>
        <source>Deletes the temporary and the permanent errors in the ECU</source>
        <translation>Изтрива временните и постоянните грешки в контролера</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTabFiles</name>
    <message>
        <source>Files</source>
        <translation>Файлове</translation>
    </message>
    <message>
        <source>Notes of the file</source>
        <translation>Бележки на файла</translation>
    </message>
    <message>
        <source>No notes</source>
        <translation>Няма бележки</translation>
    </message>
    <message>
        <source>&amp;Store configuration...</source>
        <translation>&amp;Запази конфигурацията...</translation>
    </message>
    <message>
        <source>&amp;Load into the ECU</source>
        <translation>За&amp;реди в контролера</translation>
    </message>
    <message>
        <source>&amp;Compare with the ECU</source>
        <translation>&amp;Сравни с контролера</translation>
    </message>
    <message>
        <source>Co&amp;mpare with a file...</source>
        <translation>Сравни с фа&amp;йл...</translation>
    </message>
    <message>
        <source>Connect to an ECU first</source>
        <translation>Първо се свържете с контролер</translation>
    </message>
    <message>
        <source>Stores the configuration of the ECU in a file</source>
        <translation>Запазва конфигурацията на контролера във файл</translation>
    </message>
    <message>
        <source>Writes the file&apos;s configuration into the ECU. What the ECU holds is stored in the folder &quot;backup&quot; before.</source>
        <translation>Записва конфигурацията от файла в контролера. Преди това съдържанието на контролера се запазва в папката „backup“.</translation>
    </message>
    <message>
        <source>Lists what the file has differently from the ECU</source>
        <translation>Показва по какво файлът се различава от контролера</translation>
    </message>
    <message>
        <source>Lists what differs from another file</source>
        <translation>Показва разликите спрямо друг файл</translation>
    </message>
    <message>
        <source>No file is selected.</source>
        <translation>Няма избран файл.</translation>
    </message>
    <message>
        <source>Loading %1</source>
        <translation>Зареждане на %1</translation>
    </message>
    <message>
        <source>the ECU</source>
        <translation>контролерът</translation>
    </message>
    <message>
        <source>Compare %1 with</source>
        <translation>Сравняване на %1 с</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTabGrid</name>
    <message>
        <source>Correction grid</source>
        <translation>Коригираща карта</translation>
    </message>
    <message>
        <source>Commands of the correction grid</source>
        <translation>Команди на коригиращата карта</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Редактиране</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Отмени</translation>
    </message>
    <message>
        <source>Takes the last change back</source>
        <translation>Връща последната промяна</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Повтори</translation>
    </message>
    <message>
        <source>Makes the change again that was taken back</source>
        <translation>Прави отново отменената промяна</translation>
    </message>
    <message>
        <source>Modify area...</source>
        <translation>Промени област...</translation>
    </message>
    <message>
        <source>Changes the selected cells by a percentage, by an amount, or to a value</source>
        <translation>Променя избраните клетки с процент, с определена стойност или до определена стойност</translation>
    </message>
    <message>
        <source>Interpolate</source>
        <translation>Интерполирай</translation>
    </message>
    <message>
        <source>Fills the selection evenly between its corners</source>
        <translation>Запълва избраното равномерно между ъглите му</translation>
    </message>
    <message>
        <source>Smooth</source>
        <translation>Изглади</translation>
    </message>
    <message>
        <source>Draws every selected cell towards its neighbours</source>
        <translation>Приближава всяка избрана клетка към съседните ѝ</translation>
    </message>
    <message>
        <source>Set equal</source>
        <translation>Изравни</translation>
    </message>
    <message>
        <source>Gives all selected cells the coefficient of the cell with the cursor</source>
        <translation>Дава на всички избрани клетки коефициента на клетката с курсора</translation>
    </message>
    <message>
        <source>Raises the selected cells by a hundredth</source>
        <translation>Увеличава избраните клетки с една стотна</translation>
    </message>
    <message>
        <source>Lowers the selected cells by a hundredth</source>
        <translation>Намалява избраните клетки с една стотна</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копирай</translation>
    </message>
    <message>
        <source>Copies the selected cells, as spreadsheets take them</source>
        <translation>Копира избраните клетки във вид за електронни таблици</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Постави</translation>
    </message>
    <message>
        <source>Pastes a block from the first selected cell on</source>
        <translation>Поставя блок от първата избрана клетка нататък</translation>
    </message>
    <message>
        <source>Cell centres...</source>
        <translation>Центрове...</translation>
    </message>
    <message>
        <source>Moves the centres of the rows and columns</source>
        <translation>Измества центровете на редовете и колоните</translation>
    </message>
    <message>
        <source>Decrease</source>
        <translation>Намали</translation>
    </message>
    <message>
        <source>Leans the mixture where the engine runs</source>
        <translation>Обеднява сместа там, където работи двигателят</translation>
    </message>
    <message>
        <source>Increase</source>
        <translation>Увеличи</translation>
    </message>
    <message>
        <source>Enriches the mixture where the engine runs</source>
        <translation>Обогатява сместа там, където работи двигателят</translation>
    </message>
    <message>
        <source>%1: writing the cells</source>
        <translation>%1: записване на клетките</translation>
    </message>
    <message>
        <source>Cancelled: %1 of %2 cells have been written.</source>
        <translation>Прекъснато: записани са %1 от %2 клетки.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTabStart</name>
    <message>
        <source>Start</source>
        <translation>Начало</translation>
    </message>
    <message>
        <source>Connection</source>
        <translation>Връзка</translation>
    </message>
    <message>
        <source>Serial &amp;port</source>
        <translation>Сериен &amp;порт</translation>
    </message>
    <message>
        <source>Serial port</source>
        <translation>Сериен порт</translation>
    </message>
    <message>
        <source>The serial port with the cable to the ECU</source>
        <translation>Серийният порт с кабела към контролера</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Език</translation>
    </message>
    <message>
        <source>Language of the program</source>
        <translation>Език на програмата</translation>
    </message>
    <message>
        <source>Another language takes effect when the program has been restarted.</source>
        <translation>Новият език важи след повторно стартиране на програмата.</translation>
    </message>
    <message>
        <source>Choose a port</source>
        <translation>Изберете порт</translation>
    </message>
    <message>
        <source>%1 (not plugged in)</source>
        <translation>%1 (не е включен)</translation>
    </message>
    <message>
        <source>Connect</source>
        <translation>Свържи</translation>
    </message>
    <message>
        <source>Disconnect</source>
        <translation>Прекъсни</translation>
    </message>
    <message>
        <source>Opens the port and identifies the ECU</source>
        <translation>Отваря порта и разпознава контролера</translation>
    </message>
    <message>
        <source>Ends the connection to the ECU</source>
        <translation>Прекратява връзката с контролера</translation>
    </message>
    <message>
        <source>Firmware update...</source>
        <translation>Обновяване на фърмуера...</translation>
    </message>
    <message>
        <source>Identifying the ECU...</source>
        <translation>Разпознаване на контролера...</translation>
    </message>
    <message>
        <source>Ending the connection...</source>
        <translation>Прекратяване на връзката...</translation>
    </message>
    <message>
        <source>Connected on %1.</source>
        <translation>Връзка: %1.</translation>
    </message>
    <message>
        <source>Switch the ignition on, then connect.</source>
        <translation>Включете контакта и се свържете.</translation>
    </message>
    <message>
        <source>Plug the adapter in, or choose another port.</source>
        <translation>Включете адаптера или изберете друг порт.</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTimeSpin</name>
    <message>
        <source>%1 s</source>
        <translation>%1 s</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTpsTableCard</name>
    <message>
        <source>%1
Register %2</source>
        <translation>%1
Регистър %2</translation>
    </message>
    <message>
        <source>Correct when the throttle opens fast</source>
        <translation>Корекция при бързо отваряне на клапата</translation>
    </message>
    <message>
        <source>Correct when the throttle closes fast</source>
        <translation>Корекция при бързо затваряне на клапата</translation>
    </message>
    <message>
        <source>Outlet</source>
        <translation>Outlet</translation>
    </message>
    <message>
        <source>%1, %2 1/min
%3, register %4</source>
        <translation>%1, %2 1/min
%3, регистър %4</translation>
    </message>
</context>
<context>
    <name>zelorgas::CTraceGraph</name>
    <message>
        <source>Petrol and gas injection times</source>
        <translation>Времена на впръскване на бензин и газ</translation>
    </message>
    <message>
        <source>Live updates</source>
        <translation>Текущи измервания</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
</context>
<context>
    <name>zelorgas::CVehicleCard</name>
    <message>
        <source>Vehicle</source>
        <translation>Автомобил</translation>
    </message>
    <message>
        <source>Make, model and engine are kept with the notes of a stored configuration.</source>
        <translation>Марката, моделът и двигателят се пазят с бележките на запазената конфигурация.</translation>
    </message>
    <message>
        <source>Vehicle make</source>
        <translation>Марка автомобил</translation>
    </message>
    <message>
        <source>Vehicle model</source>
        <translation>Модел автомобил</translation>
    </message>
    <message>
        <source>Engine code</source>
        <translation>Код на двигателя</translation>
    </message>
    <message>
        <source>A complete configuration names it.</source>
        <translation>Пълната конфигурация го съдържа.</translation>
    </message>
    <message>
        <source>Engine size in cubic centimetres</source>
        <translation>Обем на двигателя в куб. сантиметри</translation>
    </message>
    <message>
        <source>A complete configuration names it: more than 500 cubic centimetres.</source>
        <translation>Пълната конфигурация го съдържа: над 500 кубически сантиметра.</translation>
    </message>
    <message>
        <source>Injector routing map</source>
        <translation>Карта на инжекторите</translation>
    </message>
    <message>
        <source>Map %1</source>
        <translation>Карта %1</translation>
    </message>
    <message>
        <source>Which of the ECU&apos;s two injector routing maps a stored file carries, and a loaded file replaces</source>
        <translation>Коя от двете карти на инжекторите в контролера съдържа запазеният файл и заменя зареденият файл</translation>
    </message>
</context>
<context>
    <name>zelorgas::ClpgecuView</name>
    <message>
        <source>ECU</source>
        <translation>Контролер</translation>
    </message>
    <message>
        <source>Live values</source>
        <translation>Текущи стойности</translation>
    </message>
    <message>
        <source>Injection times by cylinder</source>
        <translation>Времена на впръскване по цилиндри</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Страници</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Начало</translation>
    </message>
</context>
<context>
    <name>zelorgas::CommStatus</name>
    <message>
        <source>Communication : Connecting...</source>
        <translation>Връзка: установява се...</translation>
    </message>
    <message>
        <source>Communication : Connection OK!</source>
        <translation>Връзка: установена!</translation>
    </message>
    <message>
        <source>BUSY!</source>
        <translation>ЗАЕТ!</translation>
    </message>
    <message>
        <source>Communication : Not connected!</source>
        <translation>Връзка: няма!</translation>
    </message>
    <message>
        <source>The ECU does not answer yet. This page works again as soon as it does.</source>
        <translation>Контролерът още не отговаря. Страницата заработва отново, щом отговори.</translation>
    </message>
    <message>
        <source>The serial port is in use by another program.</source>
        <translation>Серийният порт се използва от друга програма.</translation>
    </message>
    <message>
        <source>Not connected. Connect to the ECU on the Start page.</source>
        <translation>Няма връзка. Свържете се с контролера от страницата „Начало“.</translation>
    </message>
</context>
<context>
    <name>zelorgas::FixedText</name>
    <message>
        <source>You have got a newer firmware version!
Please install the latest ZelorGAS version to get installed controller supported.</source>
        <translation>Контролерът е с по-нова версия на фърмуера!
Моля, инсталирайте последната версия на ZelorGAS, за да се поддържа монтираният контролер.</translation>
    </message>
    <message>
        <source>ZelorGAS has detected an obsolete firmware version!
Please download the latest firmware version to have a possibility to use new features.</source>
        <translation>ZelorGAS откри остаряла версия на фърмуера!
Моля, запишете последната версия на фърмуера, за да използвате новите възможности.</translation>
    </message>
    <message>
        <source>Current firmware version is &quot;%1&quot; while this configuration utility requires at least version &quot;%2&quot;!</source>
        <translation>Сегашната версия на фърмуера е „%1“, а тази програма изисква поне версия „%2“!</translation>
    </message>
    <message>
        <source>Do you want to replace the existing firmware version? </source>
        <translation>Желаете ли да замените сегашния фърмуер? </translation>
    </message>
    <message>
        <source>Normal</source>
        <translation>Нормален</translation>
    </message>
    <message>
        <source>Economical</source>
        <translation>Икономичен</translation>
    </message>
    <message>
        <source>Turbo</source>
        <translation>Турбо</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Неизвестен</translation>
    </message>
    <message>
        <source>Couldn&apos;t establish connection with GASECU!
Please check out cables and power supply!</source>
        <translation>Няма връзка с контролера GASECU!
Моля, проверете кабелите и захранването!</translation>
    </message>
    <message>
        <source>Unrecognized Vendor Name!</source>
        <translation>Непознато име на производителя!</translation>
    </message>
    <message>
        <source>Unrecognized Product Code!</source>
        <translation>Непознат код на продукта!</translation>
    </message>
    <message>
        <source>Could not get revision number!</source>
        <translation>Номерът на ревизията не може да бъде прочетен!</translation>
    </message>
    <message>
        <source>Error while loading installation information!
Please try again!</source>
        <translation>Грешка при зареждане на данните за инсталацията!
Моля, опитайте отново!</translation>
    </message>
    <message>
        <source>The parameter could not be loaded into the target system!</source>
        <translation>Параметърът не може да бъде записан в контролера!</translation>
    </message>
    <message>
        <source>Do you want to try again?</source>
        <translation>Желаете ли да опитате отново?</translation>
    </message>
    <message>
        <source>%1 (and %2 more)</source>
        <translation>%1 (и още %2)</translation>
    </message>
    <message>
        <source>The file is damaged:
%1
Only a part of the configuration may be in it. Do you want to load what is left?</source>
        <translation>Файлът е повреден:
%1
Възможно е в него да има само част от конфигурацията. Желаете ли да заредите останалото?</translation>
    </message>
    <message>
        <source>Nothing has been written: the ECU&apos;s present configuration could not be read</source>
        <translation>Нищо не е записано: сегашната конфигурация на контролера не може да бъде прочетена</translation>
    </message>
    <message>
        <source>What the ECU held before %1 was loaded into it</source>
        <translation>Съдържанието на контролера преди зареждането на %1</translation>
    </message>
    <message>
        <source>The ECU&apos;s present configuration could not be stored beforehand.
%1
Do you want to write over it all the same?</source>
        <translation>Сегашната конфигурация на контролера не можа да бъде запазена предварително.
%1
Желаете ли въпреки това да я замените?</translation>
    </message>
    <message>
        <source>The link failed after %1 of %2 values had been written</source>
        <translation>Връзката прекъсна след записването на %1 от %2 стойности</translation>
    </message>
    <message>
        <source>The configuration has been written, but could not be read back and compared</source>
        <translation>Конфигурацията е записана, но не може да бъде прочетена обратно и сравнена</translation>
    </message>
    <message>
        <source>The ECU has not taken everything that was written:
%1</source>
        <translation>Контролерът не е приел всичко записано:
%1</translation>
    </message>
    <message>
        <source>%1: %2 was written, the ECU holds %3</source>
        <translation>%1: записано е %2, в контролера е %3</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>и още %1</translation>
    </message>
    <message>
        <source>The current configuration data are giong to be loaded from the selected file!
Do you realy want to continue?</source>
        <translation>Конфигурацията ще бъде заредена от избрания файл!
Наистина ли желаете да продължите?</translation>
    </message>
    <message>
        <source>The configuration data have been loaded successfully!</source>
        <translation>Конфигурацията е заредена успешно!</translation>
    </message>
    <message>
        <source>An error has occured while trying to load configuration data!</source>
        <translation>Възникна грешка при зареждане на конфигурацията!</translation>
    </message>
    <message>
        <source>Simulated ECU</source>
        <translation>Симулиран контролер</translation>
    </message>
    <message>
        <source>Error while tracking Serial COMM Device Map!</source>
        <translation>Грешка при следене на списъка със серийни портове!</translation>
    </message>
    <message>
        <source>Error in RegOpenKeyEx!</source>
        <translation>Грешка в RegOpenKeyEx!</translation>
    </message>
    <message>
        <source>A Serial COMM Device has just been installed!</source>
        <translation>Току-що беше включено серийно устройство!</translation>
    </message>
    <message>
        <source>A Serial COMM Device has just been uninstalled!</source>
        <translation>Току-що беше изключено серийно устройство!</translation>
    </message>
    <message>
        <source>The GASECU has been restarted! Please wait while data are being synchronized...</source>
        <translation>GASECU беше рестартиран! Моля, изчакайте, докато данните се синхронизират...</translation>
    </message>
    <message>
        <source>Please, restart the application and the new language settings will take effect!</source>
        <translation>Моля, стартирайте програмата отново, за да се смени езикът!</translation>
    </message>
    <message>
        <source>Windows sockets initialization failed.</source>
        <translation>Неуспешно инициализиране на Windows sockets.</translation>
    </message>
    <message>
        <source>OLE initialization failed.  Make sure that the OLE libraries are the correct version.</source>
        <translation>Неуспешно инициализиране на OLE.  Проверете дали версията на OLE библиотеките е правилна.</translation>
    </message>
    <message>
        <source>Do you want to store current configuration in file &quot;%1&quot;?</source>
        <translation>Желаете ли да запазите сегашната конфигурация във файла „%1“?</translation>
    </message>
    <message>
        <source>Current configuration data will be stored in</source>
        <translation>Сегашната конфигурация ще бъде запазена в</translation>
    </message>
    <message>
        <source>File Name</source>
        <translation>Име на файла</translation>
    </message>
    <message>
        <source>Notes</source>
        <translation>Бележки</translation>
    </message>
    <message>
        <source>Please, add notes</source>
        <translation>Моля, добавете бележки</translation>
    </message>
    <message>
        <source>Current configuration data will be stored in file!</source>
        <translation>Сегашната конфигурация ще бъде запазена във файл!</translation>
    </message>
    <message>
        <source>a new file, please add notes!</source>
        <translation>нов файл, моля, добавете бележки!</translation>
    </message>
    <message>
        <source>the existing file, please update the notes!</source>
        <translation>съществуващия файл, моля, обновете бележките!</translation>
    </message>
    <message>
        <source>Existing File Name</source>
        <translation>Съществуващ файл</translation>
    </message>
    <message>
        <source>Please, update the notes</source>
        <translation>Моля, обновете бележките</translation>
    </message>
    <message>
        <source>Current configuration data will not be stored in file!</source>
        <translation>Сегашната конфигурация няма да бъде запазена във файл!</translation>
    </message>
    <message>
        <source>The filename has not completed!
Please specify all the required fields.</source>
        <translation>Името на файла не е пълно!
Моля, попълнете всички задължителни полета.</translation>
    </message>
    <message>
        <source>The current configuration data are giong to be stored into the specified file!
Do you realy want to continue?</source>
        <translation>Сегашната конфигурация ще бъде запазена в посочения файл!
Наистина ли желаете да продължите?</translation>
    </message>
    <message>
        <source>The configuration data have been stored successfully!</source>
        <translation>Конфигурацията е запазена успешно!</translation>
    </message>
    <message>
        <source>An error has occured while trying to store configuration data!</source>
        <translation>Възникна грешка при запазване на конфигурацията!</translation>
    </message>
    <message>
        <source>Please, select a file path from the tree view and then a file from the file list.</source>
        <translation>Моля, изберете папка от дървото и после файл от списъка.</translation>
    </message>
    <message>
        <source>%1 is missing and keeps its values</source>
        <translation>%1 липсва и запазва стойностите си</translation>
    </message>
    <message>
        <source>There is no element %1</source>
        <translation>Няма елемент %1</translation>
    </message>
    <message>
        <source>The version is %1 and not %2</source>
        <translation>Версията е %1, а не %2</translation>
    </message>
    <message>
        <source>%1 is missing and keeps its value</source>
        <translation>%1 липсва и запазва стойността си</translation>
    </message>
    <message>
        <source>%1 is %2, no whole number, and keeps its value</source>
        <translation>%1 е %2, което не е цяло число, и запазва стойността си</translation>
    </message>
    <message>
        <source>%1 is %2, which does not fit</source>
        <translation>%1 е %2, което не се побира</translation>
    </message>
    <message>
        <source>%1 is %2, which does not fit, and is cut to 16 bits</source>
        <translation>%1 е %2, което не се побира, и се отрязва до 16 бита</translation>
    </message>
    <message>
        <source>%1 has fewer than 1 value</source>
        <translation>%1 има по-малко от 1 стойност</translation>
    </message>
    <message>
        <source>%1 has more than %2 values</source>
        <translation>%1 има повече от %2 стойности</translation>
    </message>
    <message>
        <source>%1 has fewer than %2 values</source>
        <translation>%1 има по-малко от %2 стойности</translation>
    </message>
    <message>
        <source>%1, value %2: %3 is no number that can be loaded</source>
        <translation>%1, стойност %2: %3 не е число, което може да се зареди</translation>
    </message>
    <message>
        <source>%1, value %2: %3 is cut to 16 bits</source>
        <translation>%1, стойност %2: %3 се отрязва до 16 бита</translation>
    </message>
    <message>
        <source>%1 is cut to 8 bits</source>
        <translation>%1 се отрязва до 8 бита</translation>
    </message>
    <message>
        <source>Cannot read %1: %2</source>
        <translation>%1 не може да се прочете: %2</translation>
    </message>
    <message>
        <source>Cannot create %1: %2</source>
        <translation>%1 не може да се създаде: %2</translation>
    </message>
    <message>
        <source>Cannot write %1: the notes are too long</source>
        <translation>%1 не може да се запише: бележките са твърде дълги</translation>
    </message>
    <message>
        <source>Cannot write %1: %2</source>
        <translation>%1 не може да се запише: %2</translation>
    </message>
    <message>
        <source>engine temperature that counts as cold</source>
        <translation>температура, под която двигателят е студен</translation>
    </message>
    <message>
        <source>change-over delay with a cold engine</source>
        <translation>закъснение на превключването при студен двигател</translation>
    </message>
    <message>
        <source>engine speed condition with a cold engine</source>
        <translation>условие за обороти при студен двигател</translation>
    </message>
    <message>
        <source>engine temperature that counts as hot</source>
        <translation>температура, над която двигателят е топъл</translation>
    </message>
    <message>
        <source>change-over delay with a hot engine</source>
        <translation>закъснение на превключването при топъл двигател</translation>
    </message>
    <message>
        <source>engine speed condition with a hot engine</source>
        <translation>условие за обороти при топъл двигател</translation>
    </message>
    <message>
        <source>delay of the gas valve</source>
        <translation>закъснение на газовия клапан</translation>
    </message>
    <message>
        <source>pulses for the petrol-to-gas change-over</source>
        <translation>импулси за превключване от бензин на газ</translation>
    </message>
    <message>
        <source>cylinder-by-cylinder shift, petrol to gas</source>
        <translation>цилиндър по цилиндър, от бензин на газ</translation>
    </message>
    <message>
        <source>cylinder-by-cylinder shift, gas to petrol</source>
        <translation>цилиндър по цилиндър, от газ на бензин</translation>
    </message>
    <message>
        <source>time before gas is enabled</source>
        <translation>време до разрешаване на газа</translation>
    </message>
    <message>
        <source>gas pressure that forces a return to petrol</source>
        <translation>налягане на газа за връщане на бензин</translation>
    </message>
    <message>
        <source>coolant temperature that forces a return to petrol</source>
        <translation>температура на охл. течност за връщане на бензин</translation>
    </message>
    <message>
        <source>missing-pulse limit</source>
        <translation>праг на липсващите импулси</translation>
    </message>
    <message>
        <source>engine speed fault limit</source>
        <translation>праг за грешка по обороти</translation>
    </message>
    <message>
        <source>gas injector drive frequency</source>
        <translation>честота на управление на газовите инжектори</translation>
    </message>
    <message>
        <source>gas injector duty cycle</source>
        <translation>коефициент на запълване за газовите инжектори</translation>
    </message>
    <message>
        <source>speed-up (acceleration) delay</source>
        <translation>закъснение преди ускоряването</translation>
    </message>
    <message>
        <source>speed-up (acceleration) time</source>
        <translation>време на ускоряването</translation>
    </message>
    <message>
        <source>engine speed breakpoint A</source>
        <translation>гранични обороти A</translation>
    </message>
    <message>
        <source>engine speed breakpoint B</source>
        <translation>гранични обороти B</translation>
    </message>
    <message>
        <source>engine speed breakpoint C</source>
        <translation>гранични обороти C</translation>
    </message>
    <message>
        <source>gas level sensor threshold for 25 %</source>
        <translation>праг на датчика за ниво на газа при 25 %</translation>
    </message>
    <message>
        <source>gas level sensor threshold for 50 %</source>
        <translation>праг на датчика за ниво на газа при 50 %</translation>
    </message>
    <message>
        <source>gas level sensor threshold for 75 %</source>
        <translation>праг на датчика за ниво на газа при 75 %</translation>
    </message>
    <message>
        <source>gas level sensor threshold for 100 %</source>
        <translation>праг на датчика за ниво на газа при 100 %</translation>
    </message>
    <message>
        <source>gas level sensor type (index)</source>
        <translation>тип на датчика за ниво на газа (индекс)</translation>
    </message>
    <message>
        <source>gas type (index)</source>
        <translation>вид газ (индекс)</translation>
    </message>
    <message>
        <source>number of cylinders</source>
        <translation>брой цилиндри</translation>
    </message>
    <message>
        <source>gas injector type (index into the injector catalogue)</source>
        <translation>тип на газовите инжектори (индекс в каталога)</translation>
    </message>
    <message>
        <source>coolant temperature sensor type (index)</source>
        <translation>тип на датчика за температура на охл. течност (индекс)</translation>
    </message>
    <message>
        <source>gas temperature sensor type (index)</source>
        <translation>тип на датчика за температура на газа (индекс)</translation>
    </message>
    <message>
        <source>gas pressure sensor type (index)</source>
        <translation>тип на датчика за налягане на газа (индекс)</translation>
    </message>
    <message>
        <source>on/off pressure sensor type (index)</source>
        <translation>тип на пресостата (индекс)</translation>
    </message>
    <message>
        <source>engine speed signal source (index)</source>
        <translation>източник на сигнала за обороти (индекс)</translation>
    </message>
    <message>
        <source>engine speed signal ratio</source>
        <translation>коефициент на сигнала за обороти</translation>
    </message>
    <message>
        <source>engine type (index)</source>
        <translation>тип на двигателя (индекс)</translation>
    </message>
    <message>
        <source>engine size</source>
        <translation>обем на двигателя</translation>
    </message>
    <message>
        <source>gas temperature sensor fitted (flag)</source>
        <translation>монтиран датчик за температура на газа (флаг)</translation>
    </message>
    <message>
        <source>return to petrol on coolant temperature (flag)</source>
        <translation>връщане на бензин по температура на охл. течност (флаг)</translation>
    </message>
    <message>
        <source>return to petrol on gas pressure (flag)</source>
        <translation>връщане на бензин по налягане на газа (флаг)</translation>
    </message>
    <message>
        <source>return to petrol on missing pulses (flag)</source>
        <translation>връщане на бензин при липсващи импулси (флаг)</translation>
    </message>
    <message>
        <source>return to petrol on engine speed (flag)</source>
        <translation>връщане на бензин по обороти (флаг)</translation>
    </message>
    <message>
        <source>nominal gas pressure</source>
        <translation>номинално налягане на газа</translation>
    </message>
    <message>
        <source>minimum gas injection time for running on gas</source>
        <translation>мин. време на впръскване на газ за работа на газ</translation>
    </message>
    <message>
        <source>maximum gas injection time for running on gas</source>
        <translation>макс. време на впръскване на газ за работа на газ</translation>
    </message>
    <message>
        <source>minimum petrol injection time</source>
        <translation>мин. време на впръскване на бензин</translation>
    </message>
    <message>
        <source>second lambda sensor fitted (flag)</source>
        <translation>монтирана втора ламбда сонда (флаг)</translation>
    </message>
    <message>
        <source>manifold pressure sensor fitted (flag)</source>
        <translation>монтиран датчик за налягане в колектора (флаг)</translation>
    </message>
    <message>
        <source>manifold pressure sensor type (index)</source>
        <translation>тип на датчика за налягане в колектора (индекс)</translation>
    </message>
    <message>
        <source>extra injection</source>
        <translation>допълнително впръскване</translation>
    </message>
    <message>
        <source>throttle sensor reading at closed throttle</source>
        <translation>показание на датчика при затворена клапа</translation>
    </message>
    <message>
        <source>throttle sensor reading at full throttle</source>
        <translation>показание на датчика при отворена клапа</translation>
    </message>
    <message>
        <source>gas pressure sensor zero point</source>
        <translation>нула на датчика за налягане на газа</translation>
    </message>
    <message>
        <source>gas pressure sensor full-scale point</source>
        <translation>край на скалата на датчика за налягане на газа</translation>
    </message>
    <message>
        <source>manifold pressure sensor zero point</source>
        <translation>нула на датчика за налягане в колектора</translation>
    </message>
    <message>
        <source>manifold pressure sensor full-scale point</source>
        <translation>край на скалата на датчика за налягане в колектора</translation>
    </message>
    <message>
        <source>return-to-idle speed, gas to petrol</source>
        <translation>обороти при връщане на празен ход, от газ</translation>
    </message>
    <message>
        <source>return-to-idle speed, petrol to gas</source>
        <translation>обороти при връщане на празен ход, от бензин</translation>
    </message>
    <message>
        <source>return-to-idle duration</source>
        <translation>трайност на връщането на празен ход</translation>
    </message>
    <message>
        <source>fuel cut-off speed limit</source>
        <translation>гранични обороти за прекъсване (cut-off)</translation>
    </message>
    <message>
        <source>cut-off duration without injection</source>
        <translation>трайност без впръскване (cut-off)</translation>
    </message>
    <message>
        <source>enrichment on falling engine speed</source>
        <translation>обогатяване при падащи обороти</translation>
    </message>
    <message>
        <source>duration of that enrichment</source>
        <translation>трайност на това обогатяване</translation>
    </message>
    <message>
        <source>decay of that enrichment</source>
        <translation>затихване на това обогатяване</translation>
    </message>
    <message>
        <source>gas injector nozzle diameter</source>
        <translation>диаметър на дюзата на газовия инжектор</translation>
    </message>
    <message>
        <source>tip-in correction enabled (flag)</source>
        <translation>корекция при подаване на газ с педала (флаг)</translation>
    </message>
    <message>
        <source>tip-out correction enabled (flag)</source>
        <translation>корекция при отпускане на педала (флаг)</translation>
    </message>
    <message>
        <source>lambda signal inverted (flag)</source>
        <translation>обърнат сигнал на ламбда сондата (флаг)</translation>
    </message>
    <message>
        <source>lambda sensor voltage range (index)</source>
        <translation>обхват на напрежението на ламбда сондата (индекс)</translation>
    </message>
    <message>
        <source>multiplier for RPM_RATIO</source>
        <translation>множител за RPM_RATIO</translation>
    </message>
    <message>
        <source>injector hold frequency during off time</source>
        <translation>честота на задържане на инжектора при изключване</translation>
    </message>
    <message>
        <source>engine speed sensor type (index)</source>
        <translation>тип на датчика за обороти (индекс)</translation>
    </message>
    <message>
        <source>duration of low gas pressure before reacting</source>
        <translation>време на ниско налягане на газа до реакция</translation>
    </message>
    <message>
        <source>minimum injection time</source>
        <translation>минимално време на впръскване</translation>
    </message>
    <message>
        <source>it is empty</source>
        <translation>празно е</translation>
    </message>
    <message>
        <source>it is too long</source>
        <translation>твърде дълго е</translation>
    </message>
    <message>
        <source>it is no valid text</source>
        <translation>не е правилен текст</translation>
    </message>
    <message>
        <source>it contains a control character</source>
        <translation>съдържа управляващ знак</translation>
    </message>
    <message>
        <source>it contains %1</source>
        <translation>съдържа %1</translation>
    </message>
    <message>
        <source>it ends with a dot or a blank</source>
        <translation>завършва с точка или интервал</translation>
    </message>
    <message>
        <source>it begins with a blank</source>
        <translation>започва с интервал</translation>
    </message>
    <message>
        <source>Windows keeps it for a device</source>
        <translation>Windows го пази за устройство</translation>
    </message>
    <message>
        <source>User Folders</source>
        <translation>Потребителски папки</translation>
    </message>
    <message>
        <source>Cannot open %1: %2, 0 bytes</source>
        <translation>%1 не може да се отвори: %2, 0 байта</translation>
    </message>
    <message>
        <source>Loaded %1 bytes</source>
        <translation>Заредени са %1 байта</translation>
    </message>
    <message>
        <source>Saved %1 bytes</source>
        <translation>Записани са %1 байта</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>Няма такъв файл или папка</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>Това е папка</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>Достъпът е отказан</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>Входно-изходна грешка</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>не е обикновен файл</translation>
    </message>
    <message>
        <source>it is larger than %1 MB</source>
        <translation>по-голям е от %1 MB</translation>
    </message>
    <message>
        <source>it is written, but a power failure may still undo that: %1</source>
        <translation>записан е, но спиране на тока още може да отмени това: %1</translation>
    </message>
    <message>
        <source>Cannot write %1: %2, 0 bytes</source>
        <translation>%1 не може да се запише: %2, 0 байта</translation>
    </message>
    <message>
        <source>%1 at offset %2 unterminated</source>
        <translation>%1 на позиция %2 не завършва</translation>
    </message>
    <message>
        <source>Incorrect %1 at offset %2</source>
        <translation>Неправилен %1 на позиция %2</translation>
    </message>
    <message>
        <source>No start tag for end tag &apos;%1&apos; at offset %2</source>
        <translation>Няма начален етикет за крайния етикет &apos;%1&apos; на позиция %2</translation>
    </message>
    <message>
        <source>End tag &apos;%1&apos; at offset %2 does not match start tag &apos;%3&apos; at offset %4</source>
        <translation>Крайният етикет &apos;%1&apos; на позиция %2 не отговаря на началния етикет &apos;%3&apos; на позиция %4</translation>
    </message>
    <message>
        <source>Element &apos;%1&apos; at offset %2 not ended</source>
        <translation>Елементът &apos;%1&apos; на позиция %2 не завършва</translation>
    </message>
    <message>
        <source>Empty document</source>
        <translation>Празен документ</translation>
    </message>
    <message>
        <source>No root element</source>
        <translation>Няма коренен елемент</translation>
    </message>
    <message>
        <source>Root element has sibling</source>
        <translation>Има повече от един коренен елемент</translation>
    </message>
    <message>
        <source>name character</source>
        <translation>знак в име</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Коментар</translation>
    </message>
    <message>
        <source>CDATA Section</source>
        <translation>Раздел CDATA</translation>
    </message>
    <message>
        <source>Processing instruction</source>
        <translation>Инструкция за обработка</translation>
    </message>
    <message>
        <source>Doctype</source>
        <translation>Doctype</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>Записан е %1</translation>
    </message>
    <message>
        <source>Loaded %1</source>
        <translation>Зареден е %1</translation>
    </message>
    <message>
        <source>The file is a configuration, not a recording</source>
        <translation>Файлът е конфигурация, а не запис</translation>
    </message>
    <message>
        <source>The file is not a recording</source>
        <translation>Файлът не е запис</translation>
    </message>
    <message>
        <source>Channel %1: &quot;%2&quot; is no number</source>
        <translation>Канал %1: „%2“ не е число</translation>
    </message>
    <message>
        <source>Missing: %1</source>
        <translation>Липсват: %1</translation>
    </message>
    <message>
        <source>The recording&apos;s version is &quot;%1&quot;, not &quot;1.00&quot;</source>
        <translation>Версията на записа е „%1“, а не „1.00“</translation>
    </message>
    <message>
        <source>The recording has no data</source>
        <translation>В записа няма данни</translation>
    </message>
    <message>
        <source>Please, select an item/error!</source>
        <translation>Моля, изберете грешка!</translation>
    </message>
    <message>
        <source>There are no errors!
The list is empty!</source>
        <translation>Няма грешки!
Списъкът е празен!</translation>
    </message>
    <message>
        <source>Cannot delete the selected error!</source>
        <translation>Избраната грешка не може да се изтрие!</translation>
    </message>
    <message>
        <source>Delete error?</source>
        <translation>Да се изтрие ли грешката?</translation>
    </message>
    <message>
        <source>Delete all errors?</source>
        <translation>Да се изтрият ли всички грешки?</translation>
    </message>
    <message>
        <source>Permanent DTC 00</source>
        <translation>Постоянна грешка DTC 00</translation>
    </message>
    <message>
        <source>Permanent DTC 01</source>
        <translation>Постоянна грешка DTC 01</translation>
    </message>
    <message>
        <source>Permanent DTC 02</source>
        <translation>Постоянна грешка DTC 02</translation>
    </message>
    <message>
        <source>Permanent DTC 03</source>
        <translation>Постоянна грешка DTC 03</translation>
    </message>
    <message>
        <source>Permanent DTC 04</source>
        <translation>Постоянна грешка DTC 04</translation>
    </message>
    <message>
        <source>Permanent DTC 05</source>
        <translation>Постоянна грешка DTC 05</translation>
    </message>
    <message>
        <source>Permanent DTC 06</source>
        <translation>Постоянна грешка DTC 06</translation>
    </message>
    <message>
        <source>Permanent DTC 07</source>
        <translation>Постоянна грешка DTC 07</translation>
    </message>
    <message>
        <source>Permanent DTC 08</source>
        <translation>Постоянна грешка DTC 08</translation>
    </message>
    <message>
        <source>Permanent DTC 09</source>
        <translation>Постоянна грешка DTC 09</translation>
    </message>
    <message>
        <source>Permanent DTC 10</source>
        <translation>Постоянна грешка DTC 10</translation>
    </message>
    <message>
        <source>Permanent DTC 11</source>
        <translation>Постоянна грешка DTC 11</translation>
    </message>
    <message>
        <source>Permanent DTC 12</source>
        <translation>Постоянна грешка DTC 12</translation>
    </message>
    <message>
        <source>Permanent DTC 13</source>
        <translation>Постоянна грешка DTC 13</translation>
    </message>
    <message>
        <source>Permanent DTC 14</source>
        <translation>Постоянна грешка DTC 14</translation>
    </message>
    <message>
        <source>Permanent DTC 15</source>
        <translation>Постоянна грешка DTC 15</translation>
    </message>
    <message>
        <source>The vehicle has been started on GAS</source>
        <translation>Автомобилът е запален на ГАЗ</translation>
    </message>
    <message>
        <source>Temporary</source>
        <translation>Временни</translation>
    </message>
    <message>
        <source>Permanent</source>
        <translation>Постоянни</translation>
    </message>
    <message>
        <source>Do you want to replace the firmware of the ECU?

Image: %1
Size: %2 bytes
ECU: %3</source>
        <translation>Желаете ли да замените фърмуера на контролера?

Образ: %1
Размер: %2 байта
Контролер: %3</translation>
    </message>
    <message>
        <source>Error, no VDD on FLMD0 pin!</source>
        <translation>Грешка, няма VDD на извод FLMD0!</translation>
    </message>
    <message>
        <source>Erase failed! Block is not blank!</source>
        <translation>Неуспешно изтриване! Блокът не е празен!</translation>
    </message>
    <message>
        <source>Tha application has been erased successfuly!</source>
        <translation>Програмата на контролера е изтрита успешно!</translation>
    </message>
    <message>
        <source>Write failed!</source>
        <translation>Неуспешен запис!</translation>
    </message>
    <message>
        <source>Flash mode could not be switched off!
Please switch the power supply of the ECU off and on.</source>
        <translation>Режимът за запис във флаш паметта не може да бъде изключен!
Моля, изключете и включете захранването на контролера.</translation>
    </message>
    <message>
        <source>The configuration of the ECU could not be stored!
Do you want to go on without a copy of it?</source>
        <translation>Конфигурацията на контролера не можа да бъде запазена!
Желаете ли да продължите без нейно копие?</translation>
    </message>
    <message>
        <source>Cannot find firmware for the selected version!</source>
        <translation>Няма фърмуер за избраната версия!</translation>
    </message>
    <message>
        <source>The firmware image could not be read!
Nothing has been erased.</source>
        <translation>Образът на фърмуера не може да бъде прочетен!
Нищо не е изтрито.</translation>
    </message>
    <message>
        <source>The firmware image is empty!
Nothing has been erased.</source>
        <translation>Образът на фърмуера е празен!
Нищо не е изтрито.</translation>
    </message>
    <message>
        <source>The firmware image is too large for this ECU!
Nothing has been erased.</source>
        <translation>Образът на фърмуера е твърде голям за този контролер!
Нищо не е изтрито.</translation>
    </message>
    <message>
        <source>The firmware image has changed while it was being read!
Nothing has been erased. Please try again.</source>
        <translation>Образът на фърмуера се промени, докато се четеше!
Нищо не е изтрито. Моля, опитайте отново.</translation>
    </message>
    <message>
        <source>bootloader %1</source>
        <translation>зареждаща програма %1</translation>
    </message>
    <message>
        <source>firmware %1</source>
        <translation>фърмуер %1</translation>
    </message>
    <message>
        <source>Custom</source>
        <translation>Собствен</translation>
    </message>
    <message>
        <source>engine size (more than 500 cc)</source>
        <translation>обем на двигателя (над 500 куб. см)</translation>
    </message>
    <message>
        <source>vehicle make</source>
        <translation>марка автомобил</translation>
    </message>
    <message>
        <source>vehicle model</source>
        <translation>модел автомобил</translation>
    </message>
    <message>
        <source>engine code</source>
        <translation>код на двигателя</translation>
    </message>
    <message>
        <source>gas injector type</source>
        <translation>тип на газовите инжектори</translation>
    </message>
    <message>
        <source>nozzle diameter (more than 1.0 mm)</source>
        <translation>диаметър на дюзата (над 1.0 mm)</translation>
    </message>
    <message>
        <source>gas pressure sensor</source>
        <translation>датчик за налягане на газа</translation>
    </message>
    <message>
        <source>coolant temperature sensor</source>
        <translation>датчик за температура на охл. течност</translation>
    </message>
    <message>
        <source>Change-over</source>
        <translation>Превключване</translation>
    </message>
    <message>
        <source>Injection</source>
        <translation>Впръскване</translation>
    </message>
    <message>
        <source>Sensors</source>
        <translation>Датчици</translation>
    </message>
    <message>
        <source>Engine speed</source>
        <translation>Обороти</translation>
    </message>
    <message>
        <source>Safety</source>
        <translation>Безопасност</translation>
    </message>
    <message>
        <source>Idle and cut-off</source>
        <translation>Празен ход и cut-off</translation>
    </message>
    <message>
        <source>Lambda</source>
        <translation>Ламбда</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
    <message>
        <source>Time Out Error</source>
        <translation>Няма отговор навреме</translation>
    </message>
    <message>
        <source>invalid returned device response</source>
        <translation>неправилен отговор от устройството</translation>
    </message>
    <message>
        <source>crc error</source>
        <translation>грешка в контролната сума (CRC)</translation>
    </message>
    <message>
        <source>Write communication error</source>
        <translation>Грешка при изпращане</translation>
    </message>
    <message>
        <source>Read communication error</source>
        <translation>Грешка при приемане</translation>
    </message>
    <message>
        <source>Comm port not opened</source>
        <translation>COM портът не е отворен</translation>
    </message>
    <message>
        <source>Critical section lock time-out error</source>
        <translation>Линията не се освободи навреме</translation>
    </message>
    <message>
        <source>Modbus device return an exception code%1</source>
        <translation>Устройството по Modbus върна код на изключение %1</translation>
    </message>
    <message>
        <source>Column %1: &quot;%2&quot; is not a whole number from 0 to 65535!</source>
        <translation>Колона %1: „%2“ не е цяло число от 0 до 65535!</translation>
    </message>
    <message>
        <source>Row %1: &quot;%2&quot; is not a number from 0 to 65.535!</source>
        <translation>Ред %1: „%2“ не е число от 0 до 65.535!</translation>
    </message>
    <message>
        <source>Tpet/RPM</source>
        <translation>Tбенз/об</translation>
    </message>
    <message>
        <source>Tpet, ms</source>
        <translation>Tбенз, ms</translation>
    </message>
    <message>
        <source>RPM, 1/min</source>
        <translation>Обороти, 1/min</translation>
    </message>
    <message>
        <source>Coef</source>
        <translation>Коеф</translation>
    </message>
    <message>
        <source>1 cell</source>
        <translation>1 клетка</translation>
    </message>
    <message>
        <source>%1 cells</source>
        <translation>%1 клетки</translation>
    </message>
    <message>
        <source>1 row</source>
        <translation>1 ред</translation>
    </message>
    <message>
        <source>%1 rows</source>
        <translation>%1 реда</translation>
    </message>
    <message>
        <source>1 column</source>
        <translation>1 колона</translation>
    </message>
    <message>
        <source>%1 columns</source>
        <translation>%1 колони</translation>
    </message>
    <message>
        <source>The pasted text is too long for the grid!</source>
        <translation>Поставеният текст е твърде дълъг за картата!</translation>
    </message>
    <message>
        <source>There is nothing to paste!</source>
        <translation>Няма какво да се постави!</translation>
    </message>
    <message>
        <source>Row %1, column %2 of the pasted text: &quot;%3&quot; is not a number!</source>
        <translation>Ред %1, колона %2 на поставения текст: „%3“ не е число!</translation>
    </message>
    <message>
        <source>The rows of the pasted text differ in length: row 1 has %1, row %2 has %3!</source>
        <translation>Редовете на поставения текст са с различна дължина: ред 1 има %1, ред %2 има %3!</translation>
    </message>
    <message>
        <source>Select the cell at which the pasted block begins!</source>
        <translation>Изберете клетката, от която започва поставеният блок!</translation>
    </message>
    <message>
        <source>The pasted block has %1 and %2; from the selected cell on there is room for %3 and %4!</source>
        <translation>Поставеният блок има %1 и %2; от избраната клетка нататък има място за %3 и %4!</translation>
    </message>
    <message>
        <source>A value, out of the permitted range, is input!</source>
        <translation>Въведена е стойност извън допустимия обхват!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number from 0 to 65535!</source>
        <translation>„%1“ не е цяло число от 0 до 65535!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a whole number from -32768 to 32767!</source>
        <translation>„%1“ не е цяло число от -32768 до 32767!</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number from 0 to 6553.5!</source>
        <translation>„%1“ не е число от 0 до 6553.5!</translation>
    </message>
    <message>
        <source>TPS acceleration Enrichment/Enleanment</source>
        <translation>TPS обогатяване/обедняване при ускоряване</translation>
    </message>
    <message>
        <source>TPS deceleration Enrichment/Enleanment</source>
        <translation>TPS обогатяване/обедняване при забавяне</translation>
    </message>
    <message>
        <source>Threshold, %/s</source>
        <translation>Праг, %/s</translation>
    </message>
    <message>
        <source>Correction, %</source>
        <translation>Корекция, %</translation>
    </message>
    <message>
        <source>Duration, Cycles</source>
        <translation>Трайност, цикли</translation>
    </message>
    <message>
        <source>Dissolve, Cycles</source>
        <translation>Затихване, цикли</translation>
    </message>
    <message>
        <source>The data have been synchronized.</source>
        <translation>Данните са синхронизирани.</translation>
    </message>
    <message>
        <source>The data could not be synchronized: %1</source>
        <translation>Данните не можаха да бъдат синхронизирани: %1</translation>
    </message>
    <message>
        <source>Firmware update</source>
        <translation>Обновяване на фърмуера</translation>
    </message>
    <message>
        <source>What the ECU held before its firmware was updated</source>
        <translation>Съдържанието на контролера преди обновяването на фърмуера</translation>
    </message>
    <message>
        <source>The firmware has been updated.</source>
        <translation>Фърмуерът е обновен.</translation>
    </message>
    <message>
        <source>Loading the configuration...</source>
        <translation>Зареждане на конфигурацията...</translation>
    </message>
    <message>
        <source>The ECU does not answer.</source>
        <translation>Контролерът не отговаря.</translation>
    </message>
    <message>
        <source>Only one file can be opened, not also &quot;%1&quot;.
Usage: zelorgas [admin] [demo] [documents] [FILE.fob|FILE.osc]</source>
        <translation>Може да се отвори само един файл, не и „%1“.
Използване: zelorgas [admin] [demo] [documents] [ФАЙЛ.fob|ФАЙЛ.osc]</translation>
    </message>
    <message>
        <source>Unknown argument &quot;%1&quot;.
Usage: zelorgas [admin] [demo] [documents] [FILE.fob|FILE.osc]</source>
        <translation>Непознат аргумент „%1“.
Използване: zelorgas [admin] [demo] [documents] [ФАЙЛ.fob|ФАЙЛ.osc]</translation>
    </message>
    <message>
        <source>Another ECU answers than the one that was connected to!</source>
        <translation>Отговаря друг контролер, а не този, с който е установена връзката!</translation>
    </message>
    <message>
        <source>%1 of %2 values have been written.</source>
        <translation>Записани са %1 от %2 стойности.</translation>
    </message>
    <message>
        <source>What the ECU held before is stored in %1</source>
        <translation>Предишното съдържание на контролера е запазено в %1</translation>
    </message>
    <message>
        <source>Current configuration data will be stored in a new file,
please add notes!</source>
        <translation>Сегашната конфигурация ще бъде запазена в нов файл,
моля, добавете бележки!</translation>
    </message>
    <message>
        <source>Another ECU answers than the one in the question!
Nothing has been erased.</source>
        <translation>Отговаря друг контролер, а не този от въпроса!
Нищо не е изтрито.</translation>
    </message>
    <message>
        <source>Another ECU has answered; the program is connected to it now.</source>
        <translation>Отговори друг контролер; програмата вече е свързана с него.</translation>
    </message>
    <message>
        <source>What the ECU held before its firmware was updated is stored in
%1
Do you want to load it into the ECU?</source>
        <translation>Съдържанието на контролера преди обновяването на фърмуера е запазено в
%1
Желаете ли да го заредите в контролера?</translation>
    </message>
    <message>
        <source>(missing)</source>
        <translation>(липсва)</translation>
    </message>
</context>
<context>
    <name>zelorgas::LiveFields</name>
    <message>
        <source>Not fitted</source>
        <translation>Не е монтиран</translation>
    </message>
    <message>
        <source>Gas</source>
        <translation>Газ</translation>
    </message>
    <message>
        <source>Petrol</source>
        <translation>Бензин</translation>
    </message>
    <message>
        <source>Engine speed</source>
        <translation>Обороти</translation>
    </message>
    <message>
        <source>1/min</source>
        <translation>1/min</translation>
    </message>
    <message>
        <source>Live record, bytes 6 and 7</source>
        <translation>Текущи данни, байтове 6 и 7</translation>
    </message>
    <message>
        <source>Petrol injection</source>
        <translation>Впр. бензин</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>ms</translation>
    </message>
    <message>
        <source>Petrol injection time, input register 71</source>
        <translation>Време на впръскване на бензин, входен регистър 71</translation>
    </message>
    <message>
        <source>Gas injection</source>
        <translation>Впр. газ</translation>
    </message>
    <message>
        <source>Gas injection time, input register 72</source>
        <translation>Време на впръскване на газ, входен регистър 72</translation>
    </message>
    <message>
        <source>Gas pressure</source>
        <translation>Налягане на газа</translation>
    </message>
    <message>
        <source>bar</source>
        <translation>bar</translation>
    </message>
    <message>
        <source>Gas pressure P1, input register 43</source>
        <translation>Налягане на газа P1, входен регистър 43</translation>
    </message>
    <message>
        <source>Manifold pressure</source>
        <translation>Налягане в колектора</translation>
    </message>
    <message>
        <source>Live record, byte 5</source>
        <translation>Текущи данни, байт 5</translation>
    </message>
    <message>
        <source>Throttle</source>
        <translation>Дросел</translation>
    </message>
    <message>
        <source>%</source>
        <translation>%</translation>
    </message>
    <message>
        <source>Throttle position, input register 73</source>
        <translation>Положение на дроселовата клапа, входен регистър 73</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Режим</translation>
    </message>
    <message>
        <source>Operating mode, input register 74</source>
        <translation>Работен режим, входен регистър 74</translation>
    </message>
    <message>
        <source>Coolant</source>
        <translation>Охл. течност</translation>
    </message>
    <message>
        <source>°C</source>
        <translation>°C</translation>
    </message>
    <message>
        <source>Coolant temperature, live record, byte 2</source>
        <translation>Температура на охладителната течност, текущи данни, байт 2</translation>
    </message>
    <message>
        <source>Gas temperature</source>
        <translation>Температура на газа</translation>
    </message>
    <message>
        <source>Live record, byte 4</source>
        <translation>Текущи данни, байт 4</translation>
    </message>
    <message>
        <source>Lambda 1</source>
        <translation>Ламбда 1</translation>
    </message>
    <message>
        <source>V</source>
        <translation>V</translation>
    </message>
    <message>
        <source>Lambda 1 voltage, live record, byte 0</source>
        <translation>Напрежение на ламбда 1, текущи данни, байт 0</translation>
    </message>
    <message>
        <source>Lambda 2</source>
        <translation>Ламбда 2</translation>
    </message>
    <message>
        <source>Lambda 2 voltage, live record, byte 1</source>
        <translation>Напрежение на ламбда 2, текущи данни, байт 1</translation>
    </message>
    <message>
        <source>Battery</source>
        <translation>Акумулатор</translation>
    </message>
    <message>
        <source>Battery voltage, live record, byte 3</source>
        <translation>Напрежение на акумулатора, текущи данни, байт 3</translation>
    </message>
    <message>
        <source>Gas level</source>
        <translation>Ниво на газа</translation>
    </message>
    <message>
        <source>Gas level, input register 76</source>
        <translation>Ниво на газа, входен регистър 76</translation>
    </message>
    <message>
        <source>Fuel</source>
        <translation>Гориво</translation>
    </message>
    <message>
        <source>Fuel in use, input register 75</source>
        <translation>Използвано гориво, входен регистър 75</translation>
    </message>
    <message>
        <source>Gas %1</source>
        <translation>Газ %1</translation>
    </message>
    <message>
        <source>Petrol %1</source>
        <translation>Бензин %1</translation>
    </message>
    <message>
        <source>Gas injection time of cylinder %1, input register %2</source>
        <translation>Време на впръскване на газ в цилиндър %1, входен регистър %2</translation>
    </message>
    <message>
        <source>Petrol injection time of cylinder %1, input register %2</source>
        <translation>Време на впръскване на бензин в цилиндър %1, входен регистър %2</translation>
    </message>
</context>
</TS>
