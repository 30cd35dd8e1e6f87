<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Hesap Bilgileri</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Kaynak</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Sunucuya soruluyor...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>Sunucuya ulaşılamadı veya yanıtı okunamıyor.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>Sunucu bu hesabı kabul etmiyor veya hakkında bilgi vermiyor.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Bilinmiyor</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Durum</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Bitiş tarihi</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Hiçbir zaman</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Deneme</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Evet</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Hayır</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Kullanılan bağlantılar</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>İzin verilen bağlantılar</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Biçimler</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Sunucunun saat dilimi</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>Canlı TV</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Tüm kanallarda ara...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Kanallar</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Filmler</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Tüm filmlerde ara...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Diziler</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Tüm dizilerde ara...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Diziler</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Bir kategori seçin:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Kategoriler</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Ara...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Sırala</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Ad (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Son eklenenler</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Puan</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Kategorilere dön</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Tüm Kategoriler</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Arama: &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Rehber</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Yayın rehberini göster</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Favorilerden Kaldır</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Favorilere Ekle</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Listeden Kaldır</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>İzlendi Olarak İşaretle</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>İzlenmedi Olarak İşaretle</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>Arşiv, bu programın nasıl oynatılacağını bildirmiyor.</translation>
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
        <translation>Favoriler</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>İzlemeye Devam Et</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Son İzlenenler</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Tüm Kategoriler</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Gizli</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Kategoriyi Göster</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Kategoriyi Gizle</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Gizli Kategorileri Göster</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Son izlenenler</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Konumlar ve izlendi işaretleri</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Geçmişi Temizle</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>Tüm kaynaklardan neler silinsin? Favoriler ve gizli kategoriler kalır.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Temizle</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Abonelik hizmeti: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>İnternet televizyonu için bir oynatıcı.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Sürüm bilgilerini gösterir.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Açılacak oynatma listeleri, filmler ve yayınlar: dosyalar veya URL&apos;ler.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Favori</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>İzlendi</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>% %1 izlendi</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Yukarı Taşı</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Aşağı Taşı</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Dizilere dön</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Bölümler</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Sezon %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>İzlendi Olarak İşaretle</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>İzlenmedi Olarak İşaretle</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Rehber adresleri, tercih edilen önce</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Adres Ekle...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Dosya Ekle...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Kaldır</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Yukarı Taşı</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Aşağı Taşı</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Hesabın Rehberini Ekle</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Oynatma Listesinin Rehberini Ekle</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Dosya Ekle</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Rehberler (*.xml *.xmltv *.gz);;Tüm Dosyalar (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Otomatik: kimliğine ve adına göre bul</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Bu kanal için rehber yok</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Rehberdeki şu kanal:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Rehber Kanalı</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Kanal: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Öneriyi Onayla</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Kaynağın bildirdiği kimlikle bulundu: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Kaynağın rehber için verdiği adla bulundu: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Kanalın adıyla bulundu: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Adlar benzediği için önerildi: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Rehberin kanallarında ara</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Rehberin kanallarında ara...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Rehberin kanalları</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Rehberdeki hiçbir kanal bu metni içermiyor.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Yalnızca ilk %1 kanal gösteriliyor. Adın daha fazlasını yazın.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Bu kaynak için yayın rehberi göster</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>12 saatte bir yenile</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Şimdi Güncelle</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Güncellemeyi İptal Et</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Yayın Rehberi</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Kaynak: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> saat</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>Rehberin nereden geldiği, tercih sırasıyla:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Tüm saatleri kaydır:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Güncellemenin ilerlemesi</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Yayın rehberi</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>arşivde</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Bilgi yok</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>Hesabın kendi rehberi</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Son güncellemenin rehberi korunuyor.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>Güncelleme iptal edildi. Son güncellemenin rehberi korunuyor.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Son güncelleme: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Programlar: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Rehberi olan kanallar: %1 / %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>Bunlardan yalnızca önerilenler: %1. Bir kanalın menüsündeki &quot;Rehber Kanalı...&quot; ile onaylayın veya değiştirin.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>Son programın başlangıcı: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>%1 adresine ulaşılamıyor: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>%1 açılamıyor: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 bir rehber değil. Bir sayfa veya hata iletisi olabilir.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1, gzip dışında okunamayan bir biçimde sıkıştırılmış.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 hasarlı ve açılamıyor.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 erken bitiyor. Kullanılmadı.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 çok büyük.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1, bu kaynağın kanallarına ait program içermiyor.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>%1 kaydedilemiyor: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>Kaynağın kanalları hakkında bildirdikleri okunamıyor: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln program. Bazılarının saat dilimi bilinmiyor; yanlış saatte gösterilebilirler.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln program.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Bulunan programlar</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Saat</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Program</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
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
        <translation>Dün</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Bugün</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Yarın</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Dün %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Bugün %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Yarın %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Şimdi</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Şu anda yayında olanı göster</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Önceki gün</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Gün</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Sonraki gün</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Program ara...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>Program bulunamadı.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (arşivde)</translation>
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
        <translation>Favoriler ve konumlar kaydedilemiyor: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Favoriler ve konumlar bu programın daha yeni bir sürümüyle kaydedilmiş. Oldukları gibi kalırlar ve değişiklikler kaydedilmez.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>Favorilerinizi ve konumlarınızı içeren dosya hasarlıydı. &quot;%1&quot; adıyla saklandı ve yeni bir dosya oluşturuldu.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Bu dosya bir Vantiro Player yedeği değil veya hasarlı.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Bu yedek, Vantiro Player&apos;ın daha yeni bir sürümüyle oluşturulmuş.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Bu yedek hasarlı: &quot;%1&quot; bölümü okunamıyor.</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>Yedek yazılamıyor: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>Yedek okunamıyor: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Yükleniyor...</translation>
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
        <translation>Lütfen geçerli bir abonelik anahtarı girin.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Lütfen geçerli bir URL/yol girin.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 (bitiş: %2)</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>Sonraki: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Baştan İzle</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Yayın Akışı</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Rehber Kanalı...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Favoriler ve Konumlar</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Favorilerden kaldırıldı</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Favorilere eklendi</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>İzlendi olarak işaretlendi</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>İzlenmedi olarak işaretlendi</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Geçmiş temizlendi</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Yedekle</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>Yedek; kaynaklarınızı, favorilerinizi, geçmişinizi, konumlarınızı, gizli kategorilerinizi, yayın rehberi ayarlarınızı ve anımsatıcılarınızı içerir.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>Yedek; kaynaklarınızı, favorilerinizi, geçmişinizi, konumlarınızı ve gizli kategorilerinizi içerir.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Dosyaya sahip olan herkes içindeki parolaları ve anahtarları okuyabilir.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Parolaları ve anahtarları ekle</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Yedekler (*.json);;Tüm Dosyalar (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Geri Yükle</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>Yedek geri yüklenemedi. Her şey eskisi gibi.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
İnternet televizyonu için bir oynatıcı.
Telif Hakkı 2026 Vantiro. Tüm hakları saklıdır.

Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 veya sonrası) ve RapidJSON (MIT) ile. Bu lisansların metinleri paketle birlikte gelir.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Hakkında</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Oynatma Hatası</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>Abonelik yüklenemedi: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Oynatma Listesi Yükle</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>Dosya açılamadı: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>Oynatma listesi indirilemedi: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>%1 numaralı kanal yok</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Önce tam ekrandan çıkın</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Çıkmak için: Shift+P veya Esc</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>Oynatılabilecek bir film veya yayın değil.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Dosya Aç</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Videolar ve Oynatma Listeleri (%1);;Tüm Dosyalar (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Aç</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>Şu açılamadı:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Geçmişi Temizle...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Diğer</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Yedekle...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Geri Yükle...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Yayın Rehberi...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Hesap Bilgileri...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Hakkında</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Dosya Aç...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Adres Aç...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Kaynak Seçenekleri...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Şimdi</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Sonraki</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Bu rehber kanalı bir öneridir.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Adres Aç</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts veya yerel dosya yolu</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Aç</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Adres:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>Dosya yok.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Bu bir klasör.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>&quot;%1:&quot; ile başlayan adresler desteklenmiyor.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>Adreste sunucu belirtilmemiş.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Oynatma Hatası</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Yeniden Dene</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Oynatma durdu: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>Arşiv oynatılabilecek bir şey göndermedi.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>Arşiv veri göndermeyi bıraktı.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Görüntü kaydedildi: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>Görüntü %1 içine kaydedilemedi.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Sonraki</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Önceki</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Son Kanal</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Daha Yavaş</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Daha Hızlı</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Normal Hız</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Sesi Öne Al</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Sesi Geciktir</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Altyazıları Öne Al</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Altyazıları Geciktir</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Sonraki En Boy Oranı</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Sonraki Kırpma</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Sonraki Yakınlaştırma</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Titreşimi Gider</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Sonraki Ses Parçası</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Sonraki Altyazı Parçası</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Görüntüyü Kaydet</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Her Zaman Üstte</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Küçük Pencere</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Oynatılan bir şey yok</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Canlı bir kanalın başka hızı yoktur</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Hız: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Ses gecikmesi: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Altyazı gecikmesi: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Varsayılan</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>% %1</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>Pencereye Sığdır</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>En boy oranı: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Kırpma: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Yakınlaştırma: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Titreşim giderme: açık</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Titreşim giderme: kapalı</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Ses parçası yok</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Ses parçası: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Altyazı yok</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Altyazılar: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Altyazılar: kapalı</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Her zaman üstte: açık</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Her zaman üstte: kapalı</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>En Boy Oranı</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Kırpma</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Yakınlaştırma</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Duraklat veya Oynat</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Tam Ekran</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Hız</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Gecikmeler</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Oynatılan bir şey yok</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Oynatıcı</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Görüntü</translation>
    </message>
    <message>
        <source>&lt;&lt; 10s</source>
        <translation>&lt;&lt; 10 sn</translation>
    </message>
    <message>
        <source>10s &gt;&gt;</source>
        <translation>10 sn &gt;&gt;</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Konum</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Duraklat</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Sonraki Bölüm</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Tam Ekran</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Bilgi</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Ses</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Altyazılar</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Ses düzeyi</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Ses:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Oynat</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Oynatılıyor: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>%1 için yeniden bağlanılıyor... (deneme %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>%1 konumundan devam et</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>&quot;%1&quot; oynatma listesi kopyalanamadı: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Geri Al</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Yinele</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Ke&amp;s</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopyala</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Ya&amp;pıştır</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Sil</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tümünü Seç</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>Tamam</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Kaydet</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Aç</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Evet</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Hayır</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Yeniden Dene</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>İptal</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Vazgeç</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Uygula</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Sıfırla</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Geri Al</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Yinele</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Ke&amp;s</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopyala</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>Ya&amp;pıştır</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Sil</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Tümünü Seç</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1, %2 kanalında başlıyor.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1, saat %2 itibarıyla %3 kanalında başladı.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Anımsatıcı</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>İzle</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Değiştir: yalnızca yedekte olanlar kalır</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Geri Yükle</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Birleştir: eksik olanları ekle</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Kaynaklar:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Favoriler:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Son izlenenler:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Konumlar ve izlendi işaretleri:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Gizli kategoriler:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Yayın rehberi ayarları:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Elle ayarlanmış rehber kanalları:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Anımsatıcılar:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Tercih edilen diller:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>değişiklik yok</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>%1 eklendi, %2 değiştirildi, %3 kaldırıldı</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Yedekte parola ve anahtar yok. Bunları daha sonra &quot;Kaynağı Düzenle...&quot; ile girin: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>Yedekte oynatma listesi dosyası yok. Bunları daha sonra &quot;Kaynağı Düzenle...&quot; ile seçin: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>Yedekte rehber adreslerindeki parolalar yok. Bunları daha sonra &quot;Yayın Rehberi...&quot; ile girin: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>İzle</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Baştan İzle</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Yayın akışı: %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Gün</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Programlar</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Açıklama</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>Rehber kanalı addan tahmin edildi: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Anımsatıcıyı Kaldır</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Bana Anımsat</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Yayın akışı yükleniyor...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>Rehberde bu kanala ait program yok.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>Rehberde bu güne ait program yok.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>Şu Anda Yayında</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>Arşivde</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Anımsatıcı Ayarlandı</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>Oynatılıyor</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Diğer</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Kaynak</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Kaynak Ekle...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Kaynağı Düzenle...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Oynatma Listesini Yenile</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Kaynak:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Kaynağın kataloğunu yeniden al</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Kaynağı Düzenle</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Kaynak Ekle</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>M3U Oynatma Listesi</translation>
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
        <translation>Kaynak Türü</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Kaynağı Sil</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Kaynak Türü:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u veya yerel dosya yolu</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>Oynatma Listesi URL&apos;si/Dosyası</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Dosya Yükle...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Ad:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>Liste URL'si/Dosyası:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Bağlantıyı Sına</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>Sunucu URL&apos;si:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Kullanıcı adı:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Parola:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Canlı Yayın Biçimi:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Parola</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Göster</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Zevrino abonelik anahtarınız</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Abonelik Anahtarı:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>M3U Oynatma Listesi Yükle</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Oynatma Listeleri (*.m3u *.m3u8);;Tüm Dosyalar (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Sınanıyor...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Bağlantı başarılı</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Başarısız: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>&quot;%1&quot; kaynağı silinsin mi? Bu işlem geri alınamaz.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Kaynak Seçenekleri</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Kaynak: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>Her zamanki</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>Oynatıcının bu kaynaktan kataloğunu, rehberini ve yayınlarını isterken kullandığı ad. Yalnızca bazı sağlayıcılar belirli bir ad ister. Bir oynatma listesi bir kanal için başka bir ad belirtebilir.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>&amp;Kullanıcı aracısı:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>Kullanıcı aracısı en fazla 2048 karakterdir: A&apos;dan Z&apos;ye harfler, rakamlar, boşluklar ve sade bir İngilizce klavyenin diğer karakterleri.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Yayın Bilgileri</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Yenile</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Son izlenenlerden kaldırıldı</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Favorilerden kaldırıldı</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>İzlendi olarak işaretlendi</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>İzlenmedi olarak işaretlendi</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Kategori gizlendi</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Devre dışı bırak</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Altyazı Dosyası Yükle...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Ses parçası yok</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Altyazı Dosyası Yükle</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Altyazılar (*.srt *.ass *.ssa *.sub *.vtt);;Tüm Dosyalar (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Geri Al</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>Yayın %1 saniyedir ilerlemiyor.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>Bu URL için ortam oluşturulamadı: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>Oynatma başlatılamadı: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>libVLC yayın sırasında bir hatayla karşılaştı.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>Canlı yayın veri göndermeyi bıraktı.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>Yayının sonuna gelindi (bu, yayının sürdürülemediği bir yere atlandığında da olabilir).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Devre dışı bırak</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Parça %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Görüntü kodeği: %1
Çözünürlük: %2x%3
Kare hızı: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Ses kodeği: %1
Örnekleme hızı: %2 Hz
Kanallar: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Giriş bit hızı: %1 kbps
Ayrıştırıcı bit hızı: %2 kbps
Çözülen görüntü blokları: %3
Çözülen ses blokları: %4
Gösterilen kareler: %5   Kayıp kareler: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>Oynatıcı yok.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>Yüklenmiş ortam yok.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Ses parçaları:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Altyazı parçaları:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Henüz parça bilgisi yok.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>Sunucuya ulaşılamadı veya yanıt geçersiz</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Kimlik doğrulama başarısız - sunucu URL&apos;sini, kullanıcı adını ve parolayı denetleyin</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Sunucudan geçersiz yanıt alındı</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>Abonelik çözümlenemedi</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>Sunucunun yanıtında kimlik bilgileri eksikti</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>Sunucuya ulaşılamadı: %1</translation>
    </message>
</context>
</TS>
