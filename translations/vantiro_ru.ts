<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Сведения об учётной записи</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Источник</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Запрос к серверу...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Сервер недоступен, или его ответ не удаётся прочитать.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>Сервер не принимает эту учётную запись или ничего о ней не сообщает.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Неизвестно</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Состояние</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Истекает</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Никогда</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Пробный доступ</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Да</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Нет</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Используемые подключения</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Разрешённые подключения</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Форматы</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Часовой пояс сервера</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>ТВ</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Поиск по всем каналам...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Каналы</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Канал</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Фильмы</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Поиск по всем фильмам...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Сериалы</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Поиск по всем сериалам...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Сериалы</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Выберите категорию:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Категории</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Поиск...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Сортировка</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Название (А-Я)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Недавно добавленные</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Рейтинг</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; К категориям</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Все категории</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Поиск: «%1»</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Телегид</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Показать телегид</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Удалить из избранного</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Добавить в избранное</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Удалить из списка</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Отметить как просмотренное</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Отметить как непросмотренное</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>Архив не сообщает, как воспроизвести эту передачу.</translation>
    </message>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
</context>
<context>
    <name>CategoryList</name>
    <message>
        <source>Favorites</source>
        <translation>Избранное</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Продолжить просмотр</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Недавно просмотренные</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Все категории</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Скрытые</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Больше не скрывать категорию</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Скрыть категорию</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Показать скрытые категории</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Недавно просмотренные</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Позиции и отметки о просмотре</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Очистка истории</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>Что удалить для всех источников? Избранное и скрытые категории останутся.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Очистить</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Служба подписки: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Проигрыватель интернет-телевидения.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Показывает сведения о версии.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Плейлисты, фильмы и потоки, которые нужно открыть: файлы или URL.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Избранное</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Просмотрено</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>Просмотрено %1 %</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Выше</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Ниже</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; К сериалам</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Серии</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Сезон %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Отметить как просмотренное</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Отметить как непросмотренное</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Адреса телегидов, предпочтительный первым</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Добавить адрес...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Добавить файл...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Выше</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Ниже</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Добавить телегид учётной записи</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Добавить телегид плейлиста</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Добавить файл</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Телегиды (*.xml *.xmltv *.gz);;Все файлы (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Автоматически: найти по идентификатору и названию</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Без телегида для этого канала</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Этот канал телегида:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Канал телегида</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Канал: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Подтвердить предложение</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Найдено по идентификатору, который указывает источник: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Найдено по названию, которое источник указывает для телегида: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Найдено по названию канала: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Предложено из-за сходства названий: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Поиск по каналам телегида</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Поиск по каналам телегида...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Каналы телегида</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Ни один канал телегида не содержит этот текст.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Показаны только первые результаты (%1). Введите название полнее.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Показывать телегид для этого источника</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Обновлять каждые 12 часов</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Обновить сейчас</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Отменить обновление</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Телегид</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Источник: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> ч</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>Откуда берётся телегид, в порядке предпочтения:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Сдвинуть всё время на:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Ход обновления</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Телегид</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>в архиве</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Нет сведений</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>Собственный телегид учётной записи</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Остаётся телегид последнего обновления.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>Обновление отменено. Остаётся телегид последнего обновления.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Последнее обновление: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Передачи: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Каналы с телегидом: %1 из %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>Из них только предложено: %1. Подтвердите или измените их с помощью пункта «Канал телегида...» в меню канала.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>Начало последней передачи: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 недоступен: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>Не удаётся открыть %1: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 не является телегидом. Возможно, это страница или сообщение об ошибке.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 сжат в формате, отличном от gzip, который не удаётся прочитать.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 повреждён и не может быть распакован.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 обрывается раньше времени и не использован.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 слишком велик.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 не содержит передач каналов этого источника.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>Не удаётся сохранить %1: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Не удаётся прочитать, что источник сообщает о своих каналах: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln передача. Часовой пояс некоторых неизвестен; они могут отображаться не в тот час.</numerusform>
            <numerusform>%1: %Ln передачи. Часовой пояс некоторых неизвестен; они могут отображаться не в тот час.</numerusform>
            <numerusform>%1: %Ln передач. Часовой пояс некоторых неизвестен; они могут отображаться не в тот час.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln передача.</numerusform>
            <numerusform>%1: %Ln передачи.</numerusform>
            <numerusform>%1: %Ln передач.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Найденные передачи</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Передача</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Канал</translation>
    </message>
</context>
<context>
    <name>GuideTexts</name>
    <message>
        <source>%1 - %2</source>
        <translation>%1 - %2</translation>
    </message>
    <message>
        <source>Yesterday</source>
        <translation>Вчера</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Сегодня</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Завтра</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Вчера %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Сегодня %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Завтра %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Сейчас</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Показать, что идёт сейчас</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Предыдущий день</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>День</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Следующий день</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Поиск передач...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Передач не найдено.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (в архиве)</translation>
    </message>
    <message>
        <source>%1  %2</source>
        <translation>%1  %2</translation>
    </message>
</context>
<context>
    <name>Library</name>
    <message>
        <source>Favorites and positions cannot be stored: %1</source>
        <translation>Не удаётся сохранить избранное и позиции: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Избранное и позиции сохранены более новой версией этой программы. Они остаются как есть, и изменения не сохраняются.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>Файл с избранным и позициями был повреждён. Он сохранён как «%1», и создан новый.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Этот файл не является резервной копией Vantiro Player или повреждён.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Эта резервная копия создана более новой версией Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Эта резервная копия повреждена: её часть «%1» не удаётся прочитать.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>Не удаётся записать резервную копию: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>Не удаётся прочитать резервную копию: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Загрузка...</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Vantiro Player</source>
        <translation>Vantiro Player</translation>
    </message>
    <message>
        <source>Please provide a valid subscription key.</source>
        <translation>Укажите действительный ключ подписки.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Укажите действительный URL или путь.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 до %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>Далее: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Смотреть с начала</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Программа передач</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Канал телегида...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Избранное и позиции</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Удалено из избранного</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Добавлено в избранное</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Отмечено как просмотренное</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Отмечено как непросмотренное</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>История очищена</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Резервная копия</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>Резервная копия содержит источники, избранное, историю, позиции, скрытые категории, настройки телегидов и напоминания.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>Резервная копия содержит источники, избранное, историю, позиции и скрытые категории.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Любой, у кого есть этот файл, может прочитать пароли и ключи в нём.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Включить пароли и ключи</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Резервные копии (*.json);;Все файлы (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Восстановить</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>Не удалось восстановить резервную копию. Всё осталось как было.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Проигрыватель интернет-телевидения.
Copyright 2026 Vantiro. Все права защищены.

Используются Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 или новее) и RapidJSON (MIT). Тексты этих лицензий прилагаются к пакету.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Ошибка воспроизведения</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Не удалось загрузить подписку: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Загрузка плейлиста</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Не удалось открыть файл: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Не удалось загрузить плейлист: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>Нет канала %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Сначала выйдите из полноэкранного режима</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Выход: Shift+P или Esc</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>Это не фильм и не поток, который можно воспроизвести.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Открыть файл</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Видео и плейлисты (%1);;Все файлы (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Не удалось открыть:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Очистить историю...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Ещё</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Резервная копия...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Восстановить...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Телегид...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Сведения об учётной записи...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Открыть файл...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Открыть адрес...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Параметры источника...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Сейчас</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Далее</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Этот канал телегида предложен автоматически.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Открыть адрес</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts или путь к локальному файлу</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Адрес:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Файл не существует.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Это папка.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Адреса, начинающиеся с «%1:», не поддерживаются.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>В адресе не указан сервер.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Ошибка воспроизведения</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Повторить</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Воспроизведение остановлено: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>Архив не прислал ничего, что можно воспроизвести.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>Архив перестал передавать данные.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Снимок сохранён: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>Не удалось сохранить снимок в %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Следующий</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Предыдущий</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Последний канал</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Медленнее</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Быстрее</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Обычная скорость</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Звук раньше</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Звук позже</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Субтитры раньше</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Субтитры позже</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Следующее соотношение сторон</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Следующее кадрирование</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Следующий масштаб</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Деинтерлейсинг</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Следующая звуковая дорожка</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Следующая дорожка субтитров</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Сохранить снимок</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Поверх всех окон</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Маленькое окно</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Ничего не воспроизводится</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Канал %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>У прямого эфира нет другой скорости</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Скорость: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Задержка звука: %1 мс</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Задержка субтитров: %1 мс</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>По умолчанию</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>По размеру окна</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Соотношение сторон: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Кадрирование: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Масштаб: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Деинтерлейсинг: вкл.</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Деинтерлейсинг: выкл.</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Нет звуковых дорожек</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Звуковая дорожка: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Без субтитров</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Субтитры: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Субтитры: выкл.</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Поверх всех окон: вкл.</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Поверх всех окон: выкл.</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Соотношение сторон</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Кадрирование</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Масштаб</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Пауза или воспроизведение</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Полный экран</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Скорость</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Задержки</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Ничего не воспроизводится</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Проигрыватель</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Видео</translation>
    </message>
    <message>
        <source>&lt;&lt; 10s</source>
        <translation>&lt;&lt; 10 с</translation>
    </message>
    <message>
        <source>10s &gt;&gt;</source>
        <translation>10 с &gt;&gt;</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Позиция</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Пауза</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Следующая серия</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Полный экран</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Сведения</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Звук</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Субтитры</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Громкость</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Громк.:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Воспроизвести</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Воспроизводится: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Повторное подключение к %1... (попытка %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Продолжить с %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>Не удалось скопировать плейлист «%1»: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Отменить</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Повторить</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Вырезать</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Вст&amp;авить</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Выделить всё</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Да</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Нет</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Повторить</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Не сохранять</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Применить</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сбросить</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Отменить</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Повторить</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Вырезать</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Вст&amp;авить</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Выделить всё</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 начинается на канале %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1: начало в %2 на канале %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Напоминание</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Смотреть</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Заменить: останется только содержимое резервной копии</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Восстановить</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Объединить: добавить недостающее</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Источники:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Избранное:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Недавно просмотренные:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Позиции и отметки о просмотре:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Скрытые категории:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Настройки телегидов:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Каналы телегида, заданные вручную:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Напоминания:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Предпочитаемые языки:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>без изменений</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>добавлено: %1, изменено: %2, удалено: %3</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>В резервной копии нет паролей и ключей. Введите их затем с помощью пункта «Изменить источник...» для: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>В резервной копии нет файлов плейлистов. Выберите их затем с помощью пункта «Изменить источник...» для: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>В резервной копии нет паролей из адресов телегидов. Введите их затем с помощью пункта «Телегид...» для: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Смотреть</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Смотреть с начала</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Программа передач: %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>День</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Передачи</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>Канал телегида определён по названию: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Удалить напоминание</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Напомнить</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Загрузка программы передач...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>В телегиде нет передач этого канала.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>В телегиде нет передач на этот день.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>Сейчас в эфире</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>В архиве</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Напоминание установлено</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Идёт воспроизведение</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Ещё</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Источник</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Добавить источник...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Изменить источник...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Обновить плейлист</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Источник:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Заново получить каталог источника</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Изменение источника</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Добавление источника</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>Плейлист M3U</translation>
    </message>
    <message>
        <source>Xtream Codes</source>
        <translation>Xtream Codes</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Source Type</source>
        <translation>Тип источника</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Удалить источник</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Тип источника:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u или путь к локальному файлу</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>URL/файл плейлиста</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Загрузить файл...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Название:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>URL/файл плейлиста:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Проверить подключение</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>URL сервера:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Имя пользователя:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Пароль:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Формат прямого эфира:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Пароль</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Показать</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Ваш ключ подписки Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Ключ подписки:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>Загрузка плейлиста M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Плейлисты (*.m3u *.m3u8);;Все файлы (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Проверка...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Подключение работает</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Ошибка: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>Удалить источник «%1»? Это действие нельзя отменить.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Параметры источника</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Источник: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Обычный</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>Имя, под которым проигрыватель запрашивает у этого источника каталог, телегид и потоки. Лишь некоторым поставщикам нужно определённое. Плейлист может указать для канала другое.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;User-agent:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>User-agent содержит не более 2048 символов: буквы от A до Z, цифры, пробелы и прочие символы простой английской клавиатуры.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Сведения о потоке</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Обновить</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Удалено из недавно просмотренных</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Удалено из избранного</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Отмечено как просмотренное</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Отмечено как непросмотренное</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Категория скрыта</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Отключить</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Загрузить файл субтитров...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Нет звуковых дорожек</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Загрузка файла субтитров</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Субтитры (*.srt *.ass *.ssa *.sub *.vtt);;Все файлы (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Отменить</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>Поток не продвигается уже %1 с.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Не удалось создать медиа для URL: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>Не удалось начать воспроизведение: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>В libVLC произошла ошибка при воспроизведении потока.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>Прямой эфир перестал передавать данные.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>Достигнут конец потока (такое возможно и при переходе к месту, с которого поток не смог продолжиться).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Отключить</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Дорожка %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Видеокодек: %1
Разрешение: %2x%3
Частота кадров: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Аудиокодек: %1
Частота дискретизации: %2 Hz
Каналы: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Входной битрейт: %1 kbps
Битрейт демультиплексора: %2 kbps
Декодировано видеоблоков: %3
Декодировано аудиоблоков: %4
Показано кадров: %5   Потеряно кадров: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Нет проигрывателя.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Медиа не загружено.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Звуковые дорожки:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Дорожки субтитров:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Сведений о дорожках пока нет.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Сервер недоступен или ответ недействителен</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Ошибка входа - проверьте URL сервера, имя пользователя и пароль</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Недействительный ответ сервера</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>Не удалось определить подписку</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>В ответе сервера нет данных для входа</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Сервер недоступен: %1</translation>
    </message>
</context>
</TS>
