<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>معلومات الحساب</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>المصدر</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>جارٍ الاستعلام من الخادم...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>تعذّر الوصول إلى الخادم، أو تعذّرت قراءة رده.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>لا يقبل الخادم هذا الحساب، أو لا يقدّم أي معلومات عنه.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>غير معروف</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>الحالة</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>تاريخ الانتهاء</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>أبدًا</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>تجريبي</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>نعم</translation>
    </message>
    <message>
        <source>No</source>
        <translation>لا</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>الاتصالات المستخدمة</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>الاتصالات المسموح بها</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>التنسيقات</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>المنطقة الزمنية للخادم</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>البث المباشر</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>البحث في كل القنوات...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>القنوات</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>القناة</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>الأفلام</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>البحث في كل الأفلام...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>المسلسلات</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>البحث في كل المسلسلات...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>المسلسلات</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>اختر فئة:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>الفئات</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>بحث...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>الترتيب حسب</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>الاسم (أ-ي)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>المضاف حديثًا</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>التقييم</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; العودة إلى الفئات</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>كل الفئات</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>بحث: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>الدليل</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>إظهار دليل البرامج</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>إزالة من المفضلة</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>إضافة إلى المفضلة</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>إزالة من القائمة</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>وضع علامة تمت مشاهدته</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>وضع علامة لم تتم مشاهدته</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>لا يوضح الأرشيف كيفية تشغيل هذا البرنامج.</translation>
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
        <translation>المفضلة</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>متابعة المشاهدة</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>شوهد مؤخرًا</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>كل الفئات</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>المخفية</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>إلغاء إخفاء الفئة</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>إخفاء الفئة</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>إظهار الفئات المخفية</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>شوهد مؤخرًا</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>مواضع التوقف وعلامات المشاهدة</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>مسح السجل</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>ما الذي يُحذف من كل المصادر؟ تبقى المفضلة والفئات المخفية.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>مسح</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>خدمة الاشتراك: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>مشغّل للتلفاز عبر الإنترنت.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>يعرض معلومات الإصدار.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>قوائم التشغيل والأفلام وعمليات البث المراد فتحها: ملفات أو عناوين URL.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>مفضل</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>تمت مشاهدته</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>تمت مشاهدة %1 %</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>نقل لأعلى</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>نقل لأسفل</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; العودة إلى المسلسلات</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>الحلقات</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>الموسم %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>وضع علامة تمت مشاهدته</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>وضع علامة لم تتم مشاهدته</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>عناوين الأدلة، المفضل أولًا</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>إضافة عنوان...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>إضافة ملف...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>إزالة</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>نقل لأعلى</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>نقل لأسفل</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>إضافة دليل الحساب</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>إضافة دليل قائمة التشغيل</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>إضافة ملف</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>الأدلة (*.xml *.xmltv *.gz);;كل الملفات (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>تلقائي: البحث عنها بالمعرّف والاسم</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>لا يوجد دليل لهذه القناة</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>هذه القناة من الدليل:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>قناة الدليل</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>القناة: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>تأكيد الاقتراح</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>عُثر عليها بالمعرّف الذي يذكره المصدر: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>عُثر عليها بالاسم الذي يذكره المصدر للدليل: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>عُثر عليها باسم القناة: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>مقترحة لتشابه الأسماء: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>البحث في قنوات الدليل</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>البحث في قنوات الدليل...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>قنوات الدليل</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>لا توجد في الدليل قناة تحتوي على هذا النص.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>عدد النتائج الأولى المعروضة: %1. اكتب المزيد من الاسم.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>إظهار دليل برامج لهذا المصدر</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>التحديث كل 12 ساعة</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>التحديث الآن</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>إلغاء التحديث</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>دليل البرامج</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>المصدر: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> ساعة</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>مصدر الدليل، حسب ترتيب الأفضلية:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>إزاحة كل الأوقات بمقدار:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>تقدم التحديث</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>دليل البرامج</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>في الأرشيف</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>لا توجد معلومات</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>الدليل الخاص بالحساب</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>يبقى دليل آخر تحديث.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>أُلغي التحديث. يبقى دليل آخر تحديث.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>آخر تحديث: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>البرامج: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>القنوات التي لها دليل: %1 من %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>المقترحة فقط منها: %1. أكّدها أو غيّرها من خلال &quot;قناة الدليل...&quot; في قائمة القناة.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>يبدأ آخر برنامج: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>تعذّر الوصول إلى %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>تعذّر فتح %1: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>‏%1 ليس دليلًا. قد يكون صفحة أو رسالة خطأ.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>‏%1 مضغوط بتنسيق غير gzip لا يمكن قراءته.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>‏%1 تالف ولا يمكن فك ضغطه.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>ينتهي %1 قبل اكتماله. لم يُستخدم.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>‏%1 كبير جدًا.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>لا يحتوي %1 على برامج لقنوات هذا المصدر.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>تعذّر تخزين %1: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>تعذّرت قراءة ما يذكره المصدر عن قنواته: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>‏%1: ليس فيه أي برنامج (%Ln). المنطقة الزمنية لبعض البرامج غير معروفة؛ وقد تظهر في ساعة خاطئة.</numerusform>
            <numerusform>‏%1: برنامج واحد (%Ln). المنطقة الزمنية لبعض البرامج غير معروفة؛ وقد تظهر في ساعة خاطئة.</numerusform>
            <numerusform>‏%1: برنامجان (%Ln). المنطقة الزمنية لبعض البرامج غير معروفة؛ وقد تظهر في ساعة خاطئة.</numerusform>
            <numerusform>‏%1: %Ln برامج. المنطقة الزمنية لبعضها غير معروفة؛ وقد تظهر في ساعة خاطئة.</numerusform>
            <numerusform>‏%1: %Ln برنامجًا. المنطقة الزمنية لبعضها غير معروفة؛ وقد تظهر في ساعة خاطئة.</numerusform>
            <numerusform>‏%1: %Ln برنامج. المنطقة الزمنية لبعضها غير معروفة؛ وقد تظهر في ساعة خاطئة.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>‏%1: ليس فيه أي برنامج (%Ln).</numerusform>
            <numerusform>‏%1: برنامج واحد (%Ln).</numerusform>
            <numerusform>‏%1: برنامجان (%Ln).</numerusform>
            <numerusform>‏%1: %Ln برامج.</numerusform>
            <numerusform>‏%1: %Ln برنامجًا.</numerusform>
            <numerusform>‏%1: %Ln برنامج.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>البرامج التي عُثر عليها</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>الوقت</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>البرنامج</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>القناة</translation>
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
        <translation>أمس</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>غدًا</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>أمس %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>اليوم %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>غدًا %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>الآن</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>إظهار ما يُعرض الآن</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>اليوم السابق</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>اليوم التالي</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>البحث عن برامج...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>لم يُعثر على أي برنامج.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (في الأرشيف)</translation>
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
        <translation>تعذّر تخزين المفضلة ومواضع التوقف: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>خُزّنت المفضلة ومواضع التوقف بواسطة إصدار أحدث من هذا البرنامج. ستبقى كما هي، ولن تُخزَّن التغييرات.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>كان الملف الذي يحتوي على المفضلة ومواضع التوقف تالفًا. حُفظ باسم &quot;%1&quot; وأُنشئ ملف جديد.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>هذا الملف ليس نسخة احتياطية من Vantiro Player، أو أنه تالف.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>أُنشئت هذه النسخة الاحتياطية بإصدار أحدث من Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>هذه النسخة الاحتياطية تالفة: تعذّرت قراءة الجزء &quot;%1&quot; منها.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>تعذّرت كتابة النسخة الاحتياطية: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>تعذّرت قراءة النسخة الاحتياطية: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>جارٍ التحميل...</translation>
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
        <translation>يُرجى إدخال مفتاح اشتراك صالح.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>يُرجى إدخال عنوان URL أو مسار صالح.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 حتى %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>التالي: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>المشاهدة من البداية</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>جدول البرامج</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>قناة الدليل...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>المفضلة ومواضع التوقف</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>أُزيل من المفضلة</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>أُضيف إلى المفضلة</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>وُضعت علامة تمت مشاهدته</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>وُضعت علامة لم تتم مشاهدته</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>مُسح السجل</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>نسخ احتياطي</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>تحتوي النسخة الاحتياطية على المصادر والمفضلة والسجل ومواضع التوقف والفئات المخفية وإعدادات أدلة البرامج والتذكيرات.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>تحتوي النسخة الاحتياطية على المصادر والمفضلة والسجل ومواضع التوقف والفئات المخفية.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>يستطيع كل من يملك الملف قراءة كلمات المرور والمفاتيح الموجودة فيه.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>تضمين كلمات المرور والمفاتيح</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>النسخ الاحتياطية (*.json);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>استعادة</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>تعذّرت استعادة النسخة الاحتياطية. بقي كل شيء كما كان.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
مشغّل للتلفاز عبر الإنترنت.
حقوق النشر 2026 Vantiro. كل الحقوق محفوظة.

مع Qt %2 (LGPL 3) وlibVLC %3 (LGPL 2.1 أو أحدث) وRapidJSON (MIT). نصوص هذه التراخيص مرفقة بالحزمة.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>حول</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>خطأ في التشغيل</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>تعذّر تحميل الاشتراك: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>تحميل قائمة التشغيل</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>تعذّر فتح الملف: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>تعذّر تنزيل قائمة التشغيل: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>لا توجد قناة %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>اخرج من ملء الشاشة أولًا</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>للخروج: Shift+P أو Escape</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>ليس فيلمًا أو بثًا يمكن تشغيله.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>فتح ملف</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>مقاطع الفيديو وقوائم التشغيل (%1);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>تعذّر فتح ما يلي:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>مسح السجل...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>المزيد</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>نسخ احتياطي...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>استعادة...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>دليل البرامج...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>معلومات الحساب...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>حول</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>فتح ملف...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>فتح عنوان...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>خيارات المصدر...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>الآن</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>التالي</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>قناة الدليل هذه مقترحة.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>فتح عنوان</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts أو مسار ملف محلي</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>العنوان:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>الملف غير موجود.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>إنه مجلد.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>العناوين التي تبدأ بـ &quot;%1:&quot; غير مدعومة.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>لا يذكر العنوان أي خادم.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>خطأ في التشغيل</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>إعادة المحاولة</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>توقف التشغيل: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>لم يرسل الأرشيف شيئًا قابلًا للتشغيل.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>توقف الأرشيف عن إرسال البيانات.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>حُفظت الصورة: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>تعذّر حفظ الصورة في %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>التالي</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>السابق</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>آخر قناة</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>أبطأ</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>أسرع</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>السرعة العادية</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>تقديم الصوت</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>تأخير الصوت</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>تقديم الترجمة</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>تأخير الترجمة</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>نسبة العرض إلى الارتفاع التالية</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>الاقتصاص التالي</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>التكبير التالي</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>إزالة التشابك</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>المسار الصوتي التالي</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>مسار الترجمة التالي</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>حفظ الصورة</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>دائمًا في المقدمة</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>نافذة صغيرة</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>لا يوجد شيء قيد التشغيل</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>القناة %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>ليس للقناة المباشرة سرعة أخرى</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>السرعة: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>تأخير الصوت: %1 مللي ثانية</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>تأخير الترجمة: %1 مللي ثانية</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>افتراضي</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>ملاءمة النافذة</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>نسبة العرض إلى الارتفاع: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>الاقتصاص: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>التكبير: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>إزالة التشابك: قيد التشغيل</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>إزالة التشابك: متوقفة</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>لا توجد مسارات صوتية</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>المسار الصوتي: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>بلا ترجمة</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>الترجمة: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>الترجمة: متوقفة</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>دائمًا في المقدمة: قيد التشغيل</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>دائمًا في المقدمة: متوقف</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>نسبة العرض إلى الارتفاع</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>الاقتصاص</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>التكبير</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>إيقاف مؤقت أو تشغيل</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>ملء الشاشة</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>السرعة</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>التأخيرات</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>لا يوجد شيء قيد التشغيل</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>المشغّل</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>الفيديو</translation>
    </message>
    <message>
        <source>&lt;&lt; 10s</source>
        <translation>‪&lt;&lt; 10 ث‬</translation>
    </message>
    <message>
        <source>10s &gt;&gt;</source>
        <translation>‪10 ث &gt;&gt;‬</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>الموضع</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>إيقاف مؤقت</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>الحلقة التالية</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>ملء الشاشة</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>معلومات</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>الصوت</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>الترجمة</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>مستوى الصوت</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>الصوت:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>تشغيل</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>قيد التشغيل: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>جارٍ إعادة الاتصال بـ %1... (المحاولة %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>المتابعة من %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>تعذّر نسخ قائمة التشغيل &quot;%1&quot;: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;تراجع</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;إعادة</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;قص</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;نسخ</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;لصق</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>تحديد الكل</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>موافق</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>حفظ</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>فتح</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;نعم</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;لا</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>إعادة المحاولة</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>إغلاق</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء الأمر</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>تجاهل</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>تطبيق</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>إعادة تعيين</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;تراجع</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;إعادة</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;قص</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;نسخ</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;لصق</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>تحديد الكل</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>يبدأ %1 على %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>بدأ %1 في %2 على %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>تذكير</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>مشاهدة</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>استبدال: يبقى ما تحتويه النسخة الاحتياطية فقط</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>استعادة</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>دمج: إضافة ما ينقص</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>المصادر:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>المفضلة:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>شوهد مؤخرًا:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>مواضع التوقف وعلامات المشاهدة:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>الفئات المخفية:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>إعدادات أدلة البرامج:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>قنوات الدليل المحددة يدويًا:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>التذكيرات:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>اللغات المفضّلة:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>لا تغيير</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>أُضيف: %1، غُيّر: %2، أُزيل: %3</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>لا تحتوي النسخة الاحتياطية على كلمات المرور والمفاتيح. أدخلها لاحقًا من خلال &quot;تحرير المصدر...&quot; للمصادر: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>لا تحتوي النسخة الاحتياطية على ملفات قوائم التشغيل. اخترها لاحقًا من خلال &quot;تحرير المصدر...&quot; للمصادر: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>لا تحتوي النسخة الاحتياطية على كلمات المرور في عناوين الأدلة. أدخلها لاحقًا من خلال &quot;دليل البرامج...&quot; للمصادر: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>مشاهدة</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>المشاهدة من البداية</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>جدول برامج %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>البرامج</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>الوصف</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>خُمّنت قناة الدليل من الاسم: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>إزالة التذكير</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>ذكّرني</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>جارٍ تحميل جدول البرامج...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>لا يحتوي الدليل على برامج لهذه القناة.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>لا يحتوي الدليل على برامج لهذا اليوم.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>يُعرض الآن</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>في الأرشيف</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>تم ضبط التذكير</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>جارٍ التشغيل</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>المزيد</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>المصدر</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>إضافة مصدر...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>تحرير المصدر...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>تحديث قائمة التشغيل</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>المصدر:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>جلب فهرس المصدر من جديد</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>تحرير المصدر</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>إضافة مصدر</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>قائمة تشغيل M3U</translation>
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
        <translation>نوع المصدر</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>حذف المصدر</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>نوع المصدر:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u أو مسار ملف محلي</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>عنوان URL أو ملف قائمة التشغيل</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>رفع ملف...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>الاسم:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>عنوان URL/ملف القائمة:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>اختبار الاتصال</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>عنوان URL للخادم:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>اسم المستخدم:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>كلمة المرور:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>تنسيق البث المباشر:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>كلمة المرور</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>إظهار</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>مفتاح اشتراكك في Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>مفتاح الاشتراك:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>رفع قائمة تشغيل M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>قوائم التشغيل (*.m3u *.m3u8);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>جارٍ الاختبار...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>الاتصال سليم</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>فشل: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>هل تريد حذف المصدر &quot;%1&quot;؟ لا يمكن التراجع عن ذلك.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>خيارات المصدر</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>المصدر: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>المعتاد</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>الاسم الذي يطلب به المشغّل من هذا المصدر فهرسه ودليله وبثّه. بعض المزوّدين فقط يشترطون اسمًا معيّنًا. ويمكن لقائمة التشغيل أن تحدّد اسمًا آخر لقناة.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;وكيل المستخدم:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>لا يزيد وكيل المستخدم على 2048 محرفًا: أحرف من A إلى Z وأرقام ومسافات وسائر محارف لوحة مفاتيح إنجليزية بسيطة.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>معلومات البث</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>تحديث</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>أُزيل مما شوهد مؤخرًا</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>أُزيل من المفضلة</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>وُضعت علامة تمت مشاهدته</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>وُضعت علامة لم تتم مشاهدته</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>أُخفيت الفئة</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>تعطيل</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>تحميل ملف ترجمة...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>لا توجد مسارات صوتية</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>تحميل ملف ترجمة</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>ملفات الترجمة (*.srt *.ass *.ssa *.sub *.vtt);;كل الملفات (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>تراجع</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>توقف البث عن التقدم منذ %1 ث.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>تعذّر إنشاء الوسائط لعنوان URL: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>تعذّر بدء تشغيل: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>واجهت libVLC خطأ أثناء البث.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>توقف البث المباشر عن إرسال البيانات.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>تم بلوغ نهاية البث (قد يحدث هذا أيضًا عند الانتقال إلى موضع تعذّر استئناف البث منه).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>تعطيل</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>المسار %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>ترميز الفيديو: %1
الدقة: %2x%3
معدل الإطارات: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>ترميز الصوت: %1
معدل العينات: %2 Hz
القنوات: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>معدل بت الإدخال: %1 kbps
معدل بت فك المزج: %2 kbps
كتل الفيديو المفكوكة: %3
كتل الصوت المفكوكة: %4
الإطارات المعروضة: %5   الإطارات المفقودة: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>لا يوجد مشغّل.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>لم تُحمَّل أي وسائط.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>المسارات الصوتية:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>مسارات الترجمة:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>لا تتوفر معلومات عن المسارات بعد.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>تعذّر الوصول إلى الخادم أو أن الرد غير صالح</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>فشلت المصادقة - تحقق من عنوان URL للخادم واسم المستخدم وكلمة المرور</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>رد غير صالح من الخادم</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>تعذّر التحقق من الاشتراك</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>لم يتضمن رد الخادم بيانات الاعتماد</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>تعذّر الوصول إلى الخادم: %1</translation>
    </message>
</context>
</TS>
