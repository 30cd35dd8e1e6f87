<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es" sourcelanguage="en">
<context>
    <name>AccountInformationDialog</name>
    <message>
        <source>Account Information</source>
        <translation>Información de la cuenta</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Fuente</translation>
    </message>
    <message>
        <source>Asking the server...</source>
        <translation>Consultando al servidor...</translation>
    </message>
    <message>
        <source>The server could not be reached, or its answer cannot be read.</source>
        <translation>No se puede conectar con el servidor o su respuesta no se puede leer.</translation>
    </message>
    <message>
        <source>The server does not accept this account, or tells nothing about it.</source>
        <translation>El servidor no acepta esta cuenta o no informa sobre ella.</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Desconocido</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Estado</translation>
    </message>
    <message>
        <source>Expires</source>
        <translation>Caduca</translation>
    </message>
    <message>
        <source>Never</source>
        <translation>Nunca</translation>
    </message>
    <message>
        <source>Trial</source>
        <translation>Prueba</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Sí</translation>
    </message>
    <message>
        <source>No</source>
        <translation>No</translation>
    </message>
    <message>
        <source>Connections in use</source>
        <translation>Conexiones en uso</translation>
    </message>
    <message>
        <source>Connections allowed</source>
        <translation>Conexiones permitidas</translation>
    </message>
    <message>
        <source>Formats</source>
        <translation>Formatos</translation>
    </message>
    <message>
        <source>Time zone of the server</source>
        <translation>Zona horaria del servidor</translation>
    </message>
</context>
<context>
    <name>BrowseTab</name>
    <message>
        <source>Live TV</source>
        <translation>TV en directo</translation>
    </message>
    <message>
        <source>Search all channels...</source>
        <translation>Buscar en todos los canales...</translation>
    </message>
    <message>
        <source>Channels</source>
        <translation>Canales</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
    </message>
    <message>
        <source>Movies</source>
        <translation>Películas</translation>
    </message>
    <message>
        <source>Search all movies...</source>
        <translation>Buscar en todas las películas...</translation>
    </message>
    <message>
        <source>TV Shows</source>
        <translation>Series</translation>
    </message>
    <message>
        <source>Search all shows...</source>
        <translation>Buscar en todas las series...</translation>
    </message>
    <message>
        <source>Shows</source>
        <translation>Series</translation>
    </message>
    <message>
        <source>Select a category:</source>
        <translation>Seleccione una categoría:</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>Categorías</translation>
    </message>
    <message>
        <source>Search...</source>
        <translation>Buscar...</translation>
    </message>
    <message>
        <source>Sort by</source>
        <translation>Ordenar por</translation>
    </message>
    <message>
        <source>Name (A-Z)</source>
        <translation>Nombre (A-Z)</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>Añadidos recientemente</translation>
    </message>
    <message>
        <source>Rating</source>
        <translation>Valoración</translation>
    </message>
    <message>
        <source>&lt; Back to Categories</source>
        <translation>&lt; Volver a las categorías</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Todas las categorías</translation>
    </message>
    <message>
        <source>Search: &quot;%1&quot;</source>
        <translation>Búsqueda: «%1»</translation>
    </message>
    <message>
        <source>Guide</source>
        <translation>Guía</translation>
    </message>
    <message>
        <source>Show the programme guide</source>
        <translation>Mostrar la guía de programación</translation>
    </message>
    <message>
        <source>Remove from Favorites</source>
        <translation>Quitar de favoritos</translation>
    </message>
    <message>
        <source>Add to Favorites</source>
        <translation>Añadir a favoritos</translation>
    </message>
    <message>
        <source>Remove from List</source>
        <translation>Quitar de la lista</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Marcar como visto</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Marcar como no visto</translation>
    </message>
</context>
<context>
    <name>CatchUpPlayer</name>
    <message>
        <source>The archive does not tell how to play this programme.</source>
        <translation>El archivo no indica cómo reproducir este programa.</translation>
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
        <translation>Favoritos</translation>
    </message>
    <message>
        <source>Continue Watching</source>
        <translation>Seguir viendo</translation>
    </message>
    <message>
        <source>Recently Watched</source>
        <translation>Vistos recientemente</translation>
    </message>
    <message>
        <source>All Categories</source>
        <translation>Todas las categorías</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ocultas</translation>
    </message>
    <message>
        <source>Unhide Category</source>
        <translation>Dejar de ocultar la categoría</translation>
    </message>
    <message>
        <source>Hide Category</source>
        <translation>Ocultar la categoría</translation>
    </message>
    <message>
        <source>Show Hidden Categories</source>
        <translation>Mostrar las categorías ocultas</translation>
    </message>
</context>
<context>
    <name>ClearHistoryDialog</name>
    <message>
        <source>Recently watched</source>
        <translation>Vistos recientemente</translation>
    </message>
    <message>
        <source>Positions and watched marks</source>
        <translation>Posiciones y marcas de visto</translation>
    </message>
    <message>
        <source>Clear History</source>
        <translation>Borrar el historial</translation>
    </message>
    <message>
        <source>What goes, of all sources? Favorites and hidden categories stay.</source>
        <translation>¿Qué se borra, de todas las fuentes? Los favoritos y las categorías ocultas se conservan.</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Borrar</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>Subscription service: %1</source>
        <translation>Servicio de suscripción: %1</translation>
    </message>
    <message>
        <source>A player for internet television.</source>
        <translation>Un reproductor para la televisión por Internet.</translation>
    </message>
    <message>
        <source>Displays version information.</source>
        <translation>Muestra información de la versión.</translation>
    </message>
    <message>
        <source>Playlists, films and streams to open: files or URLs.</source>
        <translation>Listas de reproducción, películas y emisiones que abrir: archivos o URL.</translation>
    </message>
</context>
<context>
    <name>EntryMarks</name>
    <message>
        <source>Favorite</source>
        <translation>Favorito</translation>
    </message>
    <message>
        <source>Watched</source>
        <translation>Visto</translation>
    </message>
    <message>
        <source>%1 % watched</source>
        <translation>%1 % visto</translation>
    </message>
</context>
<context>
    <name>EntryTable</name>
    <message>
        <source>Move Up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Bajar</translation>
    </message>
</context>
<context>
    <name>EpisodePage</name>
    <message>
        <source>&lt; Back to Shows</source>
        <translation>&lt; Volver a las series</translation>
    </message>
    <message>
        <source>Episodes</source>
        <translation>Episodios</translation>
    </message>
    <message>
        <source>E%1 - %2</source>
        <translation>E%1 - %2</translation>
    </message>
    <message>
        <source>Season %1</source>
        <translation>Temporada %1</translation>
    </message>
    <message>
        <source>Mark as Watched</source>
        <translation>Marcar como visto</translation>
    </message>
    <message>
        <source>Mark as Unwatched</source>
        <translation>Marcar como no visto</translation>
    </message>
</context>
<context>
    <name>GuideAddressList</name>
    <message>
        <source>Addresses of guides, the preferred one first</source>
        <translation>Direcciones de guías, la preferida primero</translation>
    </message>
    <message>
        <source>Add Address...</source>
        <translation>Añadir dirección...</translation>
    </message>
    <message>
        <source>Add File...</source>
        <translation>Añadir archivo...</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Quitar</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Subir</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Bajar</translation>
    </message>
    <message>
        <source>Add Account&apos;s Guide</source>
        <translation>Añadir la guía de la cuenta</translation>
    </message>
    <message>
        <source>Add Playlist&apos;s Guide</source>
        <translation>Añadir la guía de la lista de reproducción</translation>
    </message>
    <message>
        <source>Add File</source>
        <translation>Añadir archivo</translation>
    </message>
    <message>
        <source>Guides (*.xml *.xmltv *.gz);;All Files (*)</source>
        <translation>Guías (*.xml *.xmltv *.gz);;Todos los archivos (*)</translation>
    </message>
</context>
<context>
    <name>GuideChannelDialog</name>
    <message>
        <source>Automatic: find it by its id and name</source>
        <translation>Automático: buscarlo por su identificador y su nombre</translation>
    </message>
    <message>
        <source>No guide for this channel</source>
        <translation>Sin guía para este canal</translation>
    </message>
    <message>
        <source>This channel of the guide:</source>
        <translation>Este canal de la guía:</translation>
    </message>
    <message>
        <source>Guide Channel</source>
        <translation>Canal de la guía</translation>
    </message>
    <message>
        <source>Channel: %1</source>
        <translation>Canal: %1</translation>
    </message>
    <message>
        <source>Confirm Suggestion</source>
        <translation>Confirmar la sugerencia</translation>
    </message>
    <message>
        <source>Found by the id that the source names: %1</source>
        <translation>Encontrado por el identificador que indica la fuente: %1</translation>
    </message>
    <message>
        <source>Found by the name that the source gives for the guide: %1</source>
        <translation>Encontrado por el nombre que la fuente da para la guía: %1</translation>
    </message>
    <message>
        <source>Found by the channel&apos;s name: %1</source>
        <translation>Encontrado por el nombre del canal: %1</translation>
    </message>
    <message>
        <source>Suggested, since the names are alike: %1</source>
        <translation>Sugerido porque los nombres se parecen: %1</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels</source>
        <translation>Buscar en los canales de la guía</translation>
    </message>
    <message>
        <source>Search the guide&apos;s channels...</source>
        <translation>Buscar en los canales de la guía...</translation>
    </message>
    <message>
        <source>Channels of the guide</source>
        <translation>Canales de la guía</translation>
    </message>
    <message>
        <source>No channel of the guide contains this text.</source>
        <translation>Ningún canal de la guía contiene este texto.</translation>
    </message>
    <message>
        <source>Only the first %1 are shown. Type more of the name.</source>
        <translation>Solo se muestran los primeros %1. Escriba más del nombre.</translation>
    </message>
</context>
<context>
    <name>GuideDialog</name>
    <message>
        <source>Show a programme guide for this source</source>
        <translation>Mostrar una guía de programación para esta fuente</translation>
    </message>
    <message>
        <source>Refresh every 12 hours</source>
        <translation>Actualizar cada 12 horas</translation>
    </message>
    <message>
        <source>Update Now</source>
        <translation>Actualizar ahora</translation>
    </message>
    <message>
        <source>Cancel Update</source>
        <translation>Cancelar la actualización</translation>
    </message>
    <message>
        <source>Programme Guide</source>
        <translation>Guía de programación</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Fuente: %1</translation>
    </message>
    <message>
        <source> hours</source>
        <translation> horas</translation>
    </message>
    <message>
        <source>Where the guide comes from, in order of preference:</source>
        <translation>De dónde procede la guía, por orden de preferencia:</translation>
    </message>
    <message>
        <source>Shift all times by:</source>
        <translation>Desplazar todas las horas:</translation>
    </message>
    <message>
        <source>Progress of the update</source>
        <translation>Progreso de la actualización</translation>
    </message>
</context>
<context>
    <name>GuideGrid</name>
    <message>
        <source>Programme guide</source>
        <translation>Guía de programación</translation>
    </message>
    <message>
        <source>in the archive</source>
        <translation>en el archivo</translation>
    </message>
    <message>
        <source>No information</source>
        <translation>Sin información</translation>
    </message>
</context>
<context>
    <name>GuideResult</name>
    <message>
        <source>The account&apos;s own guide</source>
        <translation>La guía propia de la cuenta</translation>
    </message>
    <message>
        <source>The guide of the last update stays.</source>
        <translation>Se conserva la guía de la última actualización.</translation>
    </message>
    <message>
        <source>The update was cancelled. The guide of the last update stays.</source>
        <translation>Se canceló la actualización. Se conserva la guía de la última actualización.</translation>
    </message>
    <message>
        <source>Last update: %1</source>
        <translation>Última actualización: %1</translation>
    </message>
    <message>
        <source>Programmes: %1</source>
        <translation>Programas: %1</translation>
    </message>
    <message>
        <source>Channels with a guide: %1 of %2</source>
        <translation>Canales con guía: %1 de %2</translation>
    </message>
    <message>
        <source>Of these, only suggested: %1. Confirm or change them with &quot;Guide Channel...&quot; in a channel&apos;s menu.</source>
        <translation>De ellos, solo sugeridos: %1. Confírmelos o cámbielos con «Canal de la guía...» en el menú de un canal.</translation>
    </message>
    <message>
        <source>The last programme begins: %1</source>
        <translation>El último programa empieza: %1</translation>
    </message>
    <message>
        <source>%1 cannot be reached: %2</source>
        <translation>No se puede acceder a %1: %2</translation>
    </message>
    <message>
        <source>%1 cannot be opened: %2</source>
        <translation>No se puede abrir %1: %2</translation>
    </message>
    <message>
        <source>%1 is no guide. It may be a page or an error message.</source>
        <translation>%1 no es una guía. Puede ser una página o un mensaje de error.</translation>
    </message>
    <message>
        <source>%1 is packed in a form other than gzip, which cannot be read.</source>
        <translation>%1 está comprimido en un formato distinto de gzip, que no se puede leer.</translation>
    </message>
    <message>
        <source>%1 is damaged and cannot be unpacked.</source>
        <translation>%1 está dañado y no se puede descomprimir.</translation>
    </message>
    <message>
        <source>%1 ends early. It was not taken.</source>
        <translation>%1 termina antes de tiempo y no se ha utilizado.</translation>
    </message>
    <message>
        <source>%1 is too large.</source>
        <translation>%1 es demasiado grande.</translation>
    </message>
    <message>
        <source>%1 has no programmes of the channels of this source.</source>
        <translation>%1 no contiene programas de los canales de esta fuente.</translation>
    </message>
    <message>
        <source>%1 cannot be stored: %2</source>
        <translation>%1 no se puede guardar: %2</translation>
    </message>
    <message>
        <source>What the source tells of its channels cannot be read: %1</source>
        <translation>No se puede leer lo que la fuente indica sobre sus canales: %1</translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes. The time zone of some is not known; they may be shown at the wrong hour.</source>
        <translation>
            <numerusform>%1: %Ln programa. No se conoce la zona horaria de algunos; pueden mostrarse a una hora equivocada.</numerusform>
            <numerusform>%1: %Ln programas. No se conoce la zona horaria de algunos; pueden mostrarse a una hora equivocada.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1: %Ln programmes.</source>
        <translation>
            <numerusform>%1: %Ln programa.</numerusform>
            <numerusform>%1: %Ln programas.</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>GuideSearchList</name>
    <message>
        <source>Programmes found</source>
        <translation>Programas encontrados</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Hora</translation>
    </message>
    <message>
        <source>Programme</source>
        <translation>Programa</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Canal</translation>
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
        <translation>Ayer</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Hoy</translation>
    </message>
    <message>
        <source>Tomorrow</source>
        <translation>Mañana</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>Yesterday %1</source>
        <translation>Ayer %1</translation>
    </message>
    <message>
        <source>Today %1</source>
        <translation>Hoy %1</translation>
    </message>
    <message>
        <source>Tomorrow %1</source>
        <translation>Mañana %1</translation>
    </message>
</context>
<context>
    <name>GuideView</name>
    <message>
        <source>Now</source>
        <translation>Ahora</translation>
    </message>
    <message>
        <source>Show what runs now</source>
        <translation>Mostrar lo que se emite ahora</translation>
    </message>
    <message>
        <source>Previous day</source>
        <translation>Día anterior</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Día</translation>
    </message>
    <message>
        <source>Next day</source>
        <translation>Día siguiente</translation>
    </message>
    <message>
        <source>Search programmes...</source>
        <translation>Buscar programas...</translation>
    </message>
    <message>
        <source>No programme found.</source>
        <translation>No se encontró ningún programa.</translation>
    </message>
    <message>
        <source>%1  %2 (in the archive)</source>
        <translation>%1  %2 (en el archivo)</translation>
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
        <translation>No se pueden guardar los favoritos y las posiciones: %1</translation>
    </message>
    <message>
        <source>Favorites and positions were stored by a newer version of this program. They stay as they are, and changes are not stored.</source>
        <translation>Los favoritos y las posiciones se guardaron con una versión más reciente de este programa. Se quedan como están y los cambios no se guardan.</translation>
    </message>
    <message>
        <source>The file with your favorites and positions was damaged. It was kept as &quot;%1&quot;, and a new one was begun.</source>
        <translation>El archivo con sus favoritos y posiciones estaba dañado. Se conservó como «%1» y se creó uno nuevo.</translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>This file is not a backup of Vantiro Player, or it is damaged.</source>
        <translation>Este archivo no es una copia de seguridad de Vantiro Player o está dañado.</translation>
    </message>
    <message>
        <source>This backup was made by a newer version of Vantiro Player.</source>
        <translation>Esta copia de seguridad se creó con una versión más reciente de Vantiro Player.</translation>
    </message>
    <message>
        <source>This backup is damaged: its part &quot;%1&quot; cannot be read.</source>
        <translation>Esta copia de seguridad está dañada: no se puede leer su parte «%1».</translation>
    </message>
    <message>
        <source>The backup cannot be written: %1</source>
        <translation>No se puede escribir la copia de seguridad: %1</translation>
    </message>
    <message>
        <source>The backup cannot be read: %1</source>
        <translation>No se puede leer la copia de seguridad: %1</translation>
    </message>
</context>
<context>
    <name>LoadingOverlay</name>
    <message>
        <source>Loading...</source>
        <translation>Cargando...</translation>
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
        <translation>Indique una clave de suscripción válida.</translation>
    </message>
    <message>
        <source>Please provide a valid URL/path.</source>
        <translation>Indique una URL o una ruta válida.</translation>
    </message>
    <message>
        <source>%1 until %2</source>
        <translation>%1 hasta las %2</translation>
    </message>
    <message>
        <source>Next: %1 %2</source>
        <translation>A continuación: %1 %2</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Ver desde el principio</translation>
    </message>
    <message>
        <source>Schedule</source>
        <translation>Programación</translation>
    </message>
    <message>
        <source>Guide Channel...</source>
        <translation>Canal de la guía...</translation>
    </message>
    <message>
        <source>Favorites and Positions</source>
        <translation>Favoritos y posiciones</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Quitado de favoritos</translation>
    </message>
    <message>
        <source>Added to Favorites</source>
        <translation>Añadido a favoritos</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Marcado como visto</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Marcado como no visto</translation>
    </message>
    <message>
        <source>History cleared</source>
        <translation>Historial borrado</translation>
    </message>
    <message>
        <source>Back Up</source>
        <translation>Copia de seguridad</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions, hidden categories, the settings of programme guides and reminders.</source>
        <translation>La copia de seguridad contiene sus fuentes, favoritos, historial, posiciones, categorías ocultas, la configuración de las guías de programación y los recordatorios.</translation>
    </message>
    <message>
        <source>The backup holds your sources, favorites, history, positions and hidden categories.</source>
        <translation>La copia de seguridad contiene sus fuentes, favoritos, historial, posiciones y categorías ocultas.</translation>
    </message>
    <message>
        <source>Whoever has the file can read the passwords and keys in it.</source>
        <translation>Quien tenga el archivo puede leer las contraseñas y claves que contiene.</translation>
    </message>
    <message>
        <source>Include passwords and keys</source>
        <translation>Incluir contraseñas y claves</translation>
    </message>
    <message>
        <source>Backups (*.json);;All Files (*)</source>
        <translation>Copias de seguridad (*.json);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>The backup could not be restored. Everything is as it was.</source>
        <translation>No se pudo restaurar la copia de seguridad. Todo sigue como estaba.</translation>
    </message>
    <message>
        <source>Vantiro Player %1
A player for internet television.
Copyright 2026 Vantiro. All rights reserved.

With Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 or later) and RapidJSON (MIT). The texts of these licences come with the package.</source>
        <translation>Vantiro Player %1
Un reproductor para la televisión por Internet.
Copyright 2026 Vantiro. Todos los derechos reservados.

Con Qt %2 (LGPL 3), libVLC %3 (LGPL 2.1 o posterior) y RapidJSON (MIT). Los textos de estas licencias se incluyen en el paquete.</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Playback Error</source>
        <translation>Error de reproducción</translation>
    </message>
    <message>
        <source>Zevrino</source>
        <translation>Zevrino</translation>
    </message>
    <message>
        <source>Failed to load subscription: %1</source>
        <translation>No se pudo cargar la suscripción: %1</translation>
    </message>
    <message>
        <source>Load Playlist</source>
        <translation>Cargar lista de reproducción</translation>
    </message>
    <message>
        <source>Failed to open file: %1</source>
        <translation>No se pudo abrir el archivo: %1</translation>
    </message>
    <message>
        <source>Failed to download playlist: %1</source>
        <translation>No se pudo descargar la lista de reproducción: %1</translation>
    </message>
    <message>
        <source>No channel %1</source>
        <translation>No hay canal %1</translation>
    </message>
    <message>
        <source>Leave fullscreen first</source>
        <translation>Salga primero de la pantalla completa</translation>
    </message>
    <message>
        <source>Shift+P or Escape leaves the small window</source>
        <translation>Para salir: Mayús+P o Escape</translation>
    </message>
    <message>
        <source>It is not a film or a stream that can be played.</source>
        <translation>No es una película ni una emisión que se pueda reproducir.</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Abrir archivo</translation>
    </message>
    <message>
        <source>Videos and Playlists (%1);;All Files (*)</source>
        <translation>Vídeos y listas de reproducción (%1);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>This could not be opened:</source>
        <translation>No se pudo abrir:</translation>
    </message>
</context>
<context>
    <name>MoreMenu</name>
    <message>
        <source>Clear History...</source>
        <translation>Borrar el historial...</translation>
    </message>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>Back Up...</source>
        <translation>Copia de seguridad...</translation>
    </message>
    <message>
        <source>Restore...</source>
        <translation>Restaurar...</translation>
    </message>
    <message>
        <source>Programme Guide...</source>
        <translation>Guía de programación...</translation>
    </message>
    <message>
        <source>Account Information...</source>
        <translation>Información de la cuenta...</translation>
    </message>
    <message>
        <source>About</source>
        <translation>Acerca de</translation>
    </message>
    <message>
        <source>Open File...</source>
        <translation>Abrir archivo...</translation>
    </message>
    <message>
        <source>Open Location...</source>
        <translation>Abrir dirección...</translation>
    </message>
    <message>
        <source>Source Options...</source>
        <translation>Opciones de la fuente...</translation>
    </message>
</context>
<context>
    <name>OnNow</name>
    <message>
        <source>Now</source>
        <translation>Ahora</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Después</translation>
    </message>
    <message>
        <source>This guide channel is a suggestion.</source>
        <translation>Este canal de la guía es una sugerencia.</translation>
    </message>
</context>
<context>
    <name>OpenLocationDialog</name>
    <message>
        <source>Open Location</source>
        <translation>Abrir dirección</translation>
    </message>
    <message>
        <source>http://example.com/stream.ts or a local file path</source>
        <translation>http://example.com/stream.ts o la ruta de un archivo local</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>Address:</source>
        <translation>Dirección:</translation>
    </message>
</context>
<context>
    <name>OpenTarget</name>
    <message>
        <source>The file does not exist.</source>
        <translation>El archivo no existe.</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>Es una carpeta.</translation>
    </message>
    <message>
        <source>Addresses that begin with &quot;%1:&quot; are not supported.</source>
        <translation>Las direcciones que empiezan por «%1:» no son compatibles.</translation>
    </message>
    <message>
        <source>The address names no server.</source>
        <translation>La dirección no indica ningún servidor.</translation>
    </message>
</context>
<context>
    <name>PlaybackErrorBox</name>
    <message>
        <source>Playback Error</source>
        <translation>Error de reproducción</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
</context>
<context>
    <name>PlaybackSession</name>
    <message>
        <source>Playback stopped: %1</source>
        <translation>Reproducción detenida: %1</translation>
    </message>
    <message>
        <source>The archive sent nothing that plays.</source>
        <translation>El archivo no envió nada que se pueda reproducir.</translation>
    </message>
    <message>
        <source>The archive stopped sending data.</source>
        <translation>El archivo dejó de enviar datos.</translation>
    </message>
</context>
<context>
    <name>PlayerCommands</name>
    <message>
        <source>Picture saved: %1</source>
        <translation>Imagen guardada: %1</translation>
    </message>
    <message>
        <source>The picture could not be saved in %1.</source>
        <translation>No se pudo guardar la imagen en %1.</translation>
    </message>
    <message>
        <source>Next</source>
        <translation>Siguiente</translation>
    </message>
    <message>
        <source>Previous</source>
        <translation>Anterior</translation>
    </message>
    <message>
        <source>Last Channel</source>
        <translation>Último canal</translation>
    </message>
    <message>
        <source>Slower</source>
        <translation>Más lento</translation>
    </message>
    <message>
        <source>Faster</source>
        <translation>Más rápido</translation>
    </message>
    <message>
        <source>Normal Speed</source>
        <translation>Velocidad normal</translation>
    </message>
    <message>
        <source>Sound Earlier</source>
        <translation>Adelantar el sonido</translation>
    </message>
    <message>
        <source>Sound Later</source>
        <translation>Retrasar el sonido</translation>
    </message>
    <message>
        <source>Subtitles Earlier</source>
        <translation>Adelantar los subtítulos</translation>
    </message>
    <message>
        <source>Subtitles Later</source>
        <translation>Retrasar los subtítulos</translation>
    </message>
    <message>
        <source>Next Aspect Ratio</source>
        <translation>Relación de aspecto siguiente</translation>
    </message>
    <message>
        <source>Next Crop</source>
        <translation>Recorte siguiente</translation>
    </message>
    <message>
        <source>Next Zoom</source>
        <translation>Zoom siguiente</translation>
    </message>
    <message>
        <source>Deinterlace</source>
        <translation>Desentrelazar</translation>
    </message>
    <message>
        <source>Next Audio Track</source>
        <translation>Pista de audio siguiente</translation>
    </message>
    <message>
        <source>Next Subtitle Track</source>
        <translation>Pista de subtítulos siguiente</translation>
    </message>
    <message>
        <source>Save Picture</source>
        <translation>Guardar imagen</translation>
    </message>
    <message>
        <source>Always on Top</source>
        <translation>Siempre encima</translation>
    </message>
    <message>
        <source>Small Window</source>
        <translation>Ventana pequeña</translation>
    </message>
    <message>
        <source>Nothing playing</source>
        <translation>Sin reproducción</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Canal %1</translation>
    </message>
    <message>
        <source>A live channel has no other speed</source>
        <translation>Un canal en directo no tiene otra velocidad</translation>
    </message>
    <message>
        <source>Speed: %1x</source>
        <translation>Velocidad: %1x</translation>
    </message>
    <message>
        <source>Audio delay: %1 ms</source>
        <translation>Retardo de audio: %1 ms</translation>
    </message>
    <message>
        <source>Subtitle delay: %1 ms</source>
        <translation>Retardo de subtítulos: %1 ms</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Predeterminado</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>Fit to Window</source>
        <translation>Ajustar a la ventana</translation>
    </message>
    <message>
        <source>Aspect ratio: %1</source>
        <translation>Relación de aspecto: %1</translation>
    </message>
    <message>
        <source>Crop: %1</source>
        <translation>Recorte: %1</translation>
    </message>
    <message>
        <source>Zoom: %1</source>
        <translation>Zoom: %1</translation>
    </message>
    <message>
        <source>Deinterlacing: on</source>
        <translation>Desentrelazado: activado</translation>
    </message>
    <message>
        <source>Deinterlacing: off</source>
        <translation>Desentrelazado: desactivado</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Sin pistas de audio</translation>
    </message>
    <message>
        <source>Audio track: %1</source>
        <translation>Pista de audio: %1</translation>
    </message>
    <message>
        <source>No subtitles</source>
        <translation>Sin subtítulos</translation>
    </message>
    <message>
        <source>Subtitles: %1</source>
        <translation>Subtítulos: %1</translation>
    </message>
    <message>
        <source>Subtitles: off</source>
        <translation>Subtítulos: desactivados</translation>
    </message>
    <message>
        <source>Always on top: on</source>
        <translation>Siempre encima: activado</translation>
    </message>
    <message>
        <source>Always on top: off</source>
        <translation>Siempre encima: desactivado</translation>
    </message>
</context>
<context>
    <name>PlayerMenu</name>
    <message>
        <source>Aspect Ratio</source>
        <translation>Relación de aspecto</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Recorte</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Pause or Play</source>
        <translation>Pausar o reproducir</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Velocidad</translation>
    </message>
    <message>
        <source>Delays</source>
        <translation>Retardos</translation>
    </message>
</context>
<context>
    <name>PlayerPanel</name>
    <message>
        <source>Nothing playing</source>
        <translation>Sin reproducción</translation>
    </message>
    <message>
        <source>Player</source>
        <translation>Reproductor</translation>
    </message>
    <message>
        <source>Video</source>
        <translation>Vídeo</translation>
    </message>
    <message>
        <source>&lt;&lt; 10s</source>
        <translation>&lt;&lt; 10 s</translation>
    </message>
    <message>
        <source>10s &gt;&gt;</source>
        <translation>10 s &gt;&gt;</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Next Episode</source>
        <translation>Episodio siguiente</translation>
    </message>
    <message>
        <source>Fullscreen</source>
        <translation>Pantalla completa</translation>
    </message>
    <message>
        <source>Info</source>
        <translation>Información</translation>
    </message>
    <message>
        <source>Audio</source>
        <translation>Audio</translation>
    </message>
    <message>
        <source>Subtitles</source>
        <translation>Subtítulos</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Vol:</source>
        <translation>Vol.:</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Reproducir</translation>
    </message>
    <message>
        <source>Playing: %1</source>
        <translation>Reproduciendo: %1</translation>
    </message>
    <message>
        <source>Reconnecting to %1... (attempt %2)</source>
        <translation>Reconectando con %1... (intento %2)</translation>
    </message>
    <message>
        <source>%1 / %2</source>
        <translation>%1 / %2</translation>
    </message>
    <message>
        <source>Continue at %1</source>
        <translation>Continuar en %1</translation>
    </message>
</context>
<context>
    <name>PlaylistCopy</name>
    <message>
        <source>The playlist &quot;%1&quot; could not be copied: %2</source>
        <translation>No se pudo copiar la lista de reproducción «%1»: %2</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cor&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Pegar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Guardar</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Abrir</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Sí</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Retry</source>
        <translation>Reintentar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Descartar</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Aplicar</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Restablecer</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Deshacer</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Rehacer</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>Cor&amp;tar</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Copiar</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Pegar</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Eliminar</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Seleccionar todo</translation>
    </message>
</context>
<context>
    <name>ReminderKeeper</name>
    <message>
        <source>%1 begins on %2.</source>
        <translation>%1 empieza en %2.</translation>
    </message>
    <message>
        <source>%1 began at %2 on %3.</source>
        <translation>%1 empezó a las %2 en %3.</translation>
    </message>
    <message>
        <source>Reminder</source>
        <translation>Recordatorio</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Ver</translation>
    </message>
</context>
<context>
    <name>RestoreDialog</name>
    <message>
        <source>Replace: only what the backup holds stays</source>
        <translation>Reemplazar: solo queda lo que contiene la copia de seguridad</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Restaurar</translation>
    </message>
    <message>
        <source>Merge: add what is missing</source>
        <translation>Combinar: añadir lo que falta</translation>
    </message>
    <message>
        <source>Sources:</source>
        <translation>Fuentes:</translation>
    </message>
    <message>
        <source>Favorites:</source>
        <translation>Favoritos:</translation>
    </message>
    <message>
        <source>Recently watched:</source>
        <translation>Vistos recientemente:</translation>
    </message>
    <message>
        <source>Positions and watched marks:</source>
        <translation>Posiciones y marcas de visto:</translation>
    </message>
    <message>
        <source>Hidden categories:</source>
        <translation>Categorías ocultas:</translation>
    </message>
    <message>
        <source>Settings of programme guides:</source>
        <translation>Configuración de las guías de programación:</translation>
    </message>
    <message>
        <source>Guide channels that were set by hand:</source>
        <translation>Canales de la guía establecidos a mano:</translation>
    </message>
    <message>
        <source>Reminders:</source>
        <translation>Recordatorios:</translation>
    </message>
    <message>
        <source>Preferred languages:</source>
        <translation>Idiomas preferidos:</translation>
    </message>
    <message>
        <source>no change</source>
        <translation>sin cambios</translation>
    </message>
    <message>
        <source>%1 added, %2 changed, %3 removed</source>
        <translation>%1 añadidos, %2 modificados, %3 eliminados</translation>
    </message>
    <message>
        <source>The backup has no passwords and keys. Enter them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>La copia de seguridad no contiene contraseñas ni claves. Introdúzcalas después con «Editar fuente...» para: %1</translation>
    </message>
    <message>
        <source>The backup has no playlist files. Choose them afterwards with &quot;Edit Source...&quot; for: %1</source>
        <translation>La copia de seguridad no contiene archivos de listas de reproducción. Elíjalos después con «Editar fuente...» para: %1</translation>
    </message>
    <message>
        <source>The backup has no passwords in addresses of guides. Enter them afterwards with &quot;Programme Guide...&quot; for: %1</source>
        <translation>La copia de seguridad no contiene contraseñas en las direcciones de guías. Introdúzcalas después con «Guía de programación...» para: %1</translation>
    </message>
</context>
<context>
    <name>ScheduleDialog</name>
    <message>
        <source>Watch</source>
        <translation>Ver</translation>
    </message>
    <message>
        <source>Watch from Start</source>
        <translation>Ver desde el principio</translation>
    </message>
    <message>
        <source>Schedule of %1</source>
        <translation>Programación de %1</translation>
    </message>
    <message>
        <source>Day</source>
        <translation>Día</translation>
    </message>
    <message>
        <source>Programmes</source>
        <translation>Programas</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Descripción</translation>
    </message>
    <message>
        <source>The guide&apos;s channel was guessed from the name: %1</source>
        <translation>El canal de la guía se dedujo del nombre: %1</translation>
    </message>
    <message>
        <source>Remove Reminder</source>
        <translation>Quitar el recordatorio</translation>
    </message>
    <message>
        <source>Remind Me</source>
        <translation>Recordármelo</translation>
    </message>
    <message>
        <source>Loading the schedule...</source>
        <translation>Cargando la programación...</translation>
    </message>
    <message>
        <source>The guide has no programmes of this channel.</source>
        <translation>La guía no contiene programas de este canal.</translation>
    </message>
    <message>
        <source>The guide has no programmes of this day.</source>
        <translation>La guía no contiene programas de este día.</translation>
    </message>
</context>
<context>
    <name>ScheduleItem</name>
    <message>
        <source>On Now</source>
        <translation>En emisión</translation>
    </message>
    <message>
        <source>In the Archive</source>
        <translation>En el archivo</translation>
    </message>
    <message>
        <source>Reminder Set</source>
        <translation>Recordatorio activado</translation>
    </message>
</context>
<context>
    <name>SleepInhibitor</name>
    <message>
        <source>Playing</source>
        <translation>En reproducción</translation>
    </message>
</context>
<context>
    <name>SourceBar</name>
    <message>
        <source>More</source>
        <translation>Más</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Fuente</translation>
    </message>
    <message>
        <source>Add Source...</source>
        <translation>Añadir fuente...</translation>
    </message>
    <message>
        <source>Edit Source...</source>
        <translation>Editar fuente...</translation>
    </message>
    <message>
        <source>Refresh Playlist</source>
        <translation>Actualizar lista de reproducción</translation>
    </message>
    <message>
        <source>Source:</source>
        <translation>Fuente:</translation>
    </message>
    <message>
        <source>Fetch the catalog of the source again</source>
        <translation>Obtener de nuevo el catálogo de la fuente</translation>
    </message>
</context>
<context>
    <name>SourceDialog</name>
    <message>
        <source>Edit Source</source>
        <translation>Editar fuente</translation>
    </message>
    <message>
        <source>Add Source</source>
        <translation>Añadir fuente</translation>
    </message>
    <message>
        <source>M3U Playlist</source>
        <translation>Lista de reproducción M3U</translation>
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
        <translation>Tipo de fuente</translation>
    </message>
    <message>
        <source>Delete Source</source>
        <translation>Eliminar fuente</translation>
    </message>
    <message>
        <source>Source Type:</source>
        <translation>Tipo de fuente:</translation>
    </message>
    <message>
        <source>http://example.com/playlist.m3u or a local file path</source>
        <translation>http://example.com/playlist.m3u o la ruta de un archivo local</translation>
    </message>
    <message>
        <source>Playlist URL/File</source>
        <translation>URL/archivo de la lista de reproducción</translation>
    </message>
    <message>
        <source>Upload File...</source>
        <translation>Cargar archivo...</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>Nombre:</translation>
    </message>
    <message>
        <source>Playlist URL/File:</source>
        <translation>URL/archivo de la lista:</translation>
    </message>
    <message>
        <source>http://example.com:8080</source>
        <translation>http://example.com:8080</translation>
    </message>
    <message>
        <source>Test Connection</source>
        <translation>Probar la conexión</translation>
    </message>
    <message>
        <source>Server URL:</source>
        <translation>URL del servidor:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nombre de usuario:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Contraseña:</translation>
    </message>
    <message>
        <source>Live Stream Format:</source>
        <translation>Formato de la emisión en directo:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Contraseña</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>Mostrar</translation>
    </message>
    <message>
        <source>Your Zevrino subscription key</source>
        <translation>Su clave de suscripción de Zevrino</translation>
    </message>
    <message>
        <source>Subscription Key:</source>
        <translation>Clave de suscripción:</translation>
    </message>
    <message>
        <source>Upload M3U Playlist</source>
        <translation>Cargar lista de reproducción M3U</translation>
    </message>
    <message>
        <source>Playlists (*.m3u *.m3u8);;All Files (*)</source>
        <translation>Listas de reproducción (*.m3u *.m3u8);;Todos los archivos (*)</translation>
    </message>
    <message>
        <source>Testing...</source>
        <translation>Probando...</translation>
    </message>
    <message>
        <source>Connection OK</source>
        <translation>Conexión correcta</translation>
    </message>
    <message>
        <source>Failed: %1</source>
        <translation>Error: %1</translation>
    </message>
    <message>
        <source>Delete source &quot;%1&quot;? This cannot be undone.</source>
        <translation>¿Eliminar la fuente «%1»? Esta acción no se puede deshacer.</translation>
    </message>
</context>
<context>
    <name>SourceOptionsDialog</name>
    <message>
        <source>Source Options</source>
        <translation>Opciones de la fuente</translation>
    </message>
    <message>
        <source>Source: %1</source>
        <translation>Fuente: %1</translation>
    </message>
    <message>
        <source>The usual one</source>
        <translation>El habitual</translation>
    </message>
    <message>
        <source>The name under which the player asks this source for its catalog, its guide and its streams. Only some providers want a certain one. A playlist can name another one for a channel.</source>
        <translation>El nombre con el que el reproductor pide a esta fuente su catálogo, su guía y sus transmisiones. Solo algunos proveedores exigen uno determinado. Una lista de reproducción puede indicar otro para un canal.</translation>
    </message>
    <message>
        <source>&amp;User agent:</source>
        <translation>Agente de &amp;usuario:</translation>
    </message>
    <message>
        <source>A user agent has at most 2048 characters: letters from A to Z, digits, blanks and the other characters of a plain English keyboard.</source>
        <translation>Un agente de usuario tiene como máximo 2048 caracteres: letras de la A a la Z, cifras, espacios y los demás caracteres de un teclado inglés sencillo.</translation>
    </message>
</context>
<context>
    <name>StreamInfoDialog</name>
    <message>
        <source>Stream Info</source>
        <translation>Información de la emisión</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Actualizar</translation>
    </message>
</context>
<context>
    <name>TabLibrary</name>
    <message>
        <source>Removed from Recently Watched</source>
        <translation>Quitado de vistos recientemente</translation>
    </message>
    <message>
        <source>Removed from Favorites</source>
        <translation>Quitado de favoritos</translation>
    </message>
    <message>
        <source>Marked as Watched</source>
        <translation>Marcado como visto</translation>
    </message>
    <message>
        <source>Marked as Unwatched</source>
        <translation>Marcado como no visto</translation>
    </message>
    <message>
        <source>Category Hidden</source>
        <translation>Categoría oculta</translation>
    </message>
</context>
<context>
    <name>TrackMenus</name>
    <message>
        <source>Disable</source>
        <translation>Desactivar</translation>
    </message>
    <message>
        <source>Load Subtitle File...</source>
        <translation>Cargar archivo de subtítulos...</translation>
    </message>
    <message>
        <source>No audio tracks</source>
        <translation>Sin pistas de audio</translation>
    </message>
    <message>
        <source>Load Subtitle File</source>
        <translation>Cargar archivo de subtítulos</translation>
    </message>
    <message>
        <source>Subtitles (*.srt *.ass *.ssa *.sub *.vtt);;All Files (*)</source>
        <translation>Subtítulos (*.srt *.ass *.ssa *.sub *.vtt);;Todos los archivos (*)</translation>
    </message>
</context>
<context>
    <name>UndoBar</name>
    <message>
        <source>Undo</source>
        <translation>Deshacer</translation>
    </message>
</context>
<context>
    <name>VlcPlayer</name>
    <message>
        <source>The stream stopped advancing for %1 seconds.</source>
        <translation>La emisión lleva %1 segundos sin avanzar.</translation>
    </message>
    <message>
        <source>Could not create media for URL: %1</source>
        <translation>No se pudo crear el medio para la URL: %1</translation>
    </message>
    <message>
        <source>Playback failed to start for: %1</source>
        <translation>No se pudo iniciar la reproducción de: %1</translation>
    </message>
    <message>
        <source>libVLC encountered an error while streaming.</source>
        <translation>libVLC encontró un error durante la transmisión.</translation>
    </message>
    <message>
        <source>The live stream stopped sending data.</source>
        <translation>La emisión en directo dejó de enviar datos.</translation>
    </message>
    <message>
        <source>Reached the end of the stream (this can also happen if a seek landed somewhere the stream couldn&apos;t resume from).</source>
        <translation>Se llegó al final de la emisión (esto también puede ocurrir si se saltó a un punto desde el que no se pudo continuar).</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>Desactivar</translation>
    </message>
    <message>
        <source>Track %1</source>
        <translation>Pista %1</translation>
    </message>
    <message>
        <source>Video codec: %1
Resolution: %2x%3
Frame rate: %4 fps

</source>
        <translation>Códec de vídeo: %1
Resolución: %2x%3
Fotogramas por segundo: %4 fps

</translation>
    </message>
    <message>
        <source>Audio codec: %1
Sample rate: %2 Hz
Channels: %3

</source>
        <translation>Códec de audio: %1
Frecuencia de muestreo: %2 Hz
Canales: %3

</translation>
    </message>
    <message>
        <source>Input bitrate: %1 kbps
Demux bitrate: %2 kbps
Decoded video blocks: %3
Decoded audio blocks: %4
Displayed frames: %5   Lost frames: %6
</source>
        <translation>Tasa de bits de entrada: %1 kbps
Tasa de bits del demultiplexor: %2 kbps
Bloques de vídeo decodificados: %3
Bloques de audio decodificados: %4
Fotogramas mostrados: %5   Fotogramas perdidos: %6
</translation>
    </message>
    <message>
        <source>No player.</source>
        <translation>No hay reproductor.</translation>
    </message>
    <message>
        <source>No media loaded.</source>
        <translation>No hay ningún medio cargado.</translation>
    </message>
    <message>
        <source>Audio tracks:
</source>
        <translation>Pistas de audio:
</translation>
    </message>
    <message>
        <source>Subtitle tracks:
</source>
        <translation>Pistas de subtítulos:
</translation>
    </message>
    <message>
        <source>No track information available yet.</source>
        <translation>Todavía no hay información sobre las pistas.</translation>
    </message>
</context>
<context>
    <name>XtreamClient</name>
    <message>
        <source>Could not reach server or invalid response</source>
        <translation>No se pudo conectar con el servidor o la respuesta no es válida</translation>
    </message>
    <message>
        <source>Authentication failed - check server URL, username, and password</source>
        <translation>Error de autenticación - compruebe la URL del servidor, el nombre de usuario y la contraseña</translation>
    </message>
</context>
<context>
    <name>ZevrinoClient</name>
    <message>
        <source>Invalid response from server</source>
        <translation>Respuesta no válida del servidor</translation>
    </message>
    <message>
        <source>Subscription could not be resolved</source>
        <translation>No se pudo resolver la suscripción</translation>
    </message>
    <message>
        <source>Server response was missing credentials</source>
        <translation>Faltan las credenciales en la respuesta del servidor</translation>
    </message>
    <message>
        <source>Could not reach server: %1</source>
        <translation>No se pudo conectar con el servidor: %1</translation>
    </message>
</context>
</TS>
