# The streams that tests play, made once per build folder by ffmpeg (target vantiro_streams).

set(streams_dir ${PROJECT_BINARY_DIR}/streams)
file(MAKE_DIRECTORY ${streams_dir}/hls)

set(ffmpeg ${VANTIRO_FFMPEG} -nostdin -hide_banner -loglevel error -y)
set(picture -f lavfi -i testsrc2=size=320x180:rate=15)
set(tone -f lavfi -i sine=frequency=440:sample_rate=48000)
# A key frame every second, so that a player that tunes in shows a picture soon.
set(x264 -c:v libx264 -preset ultrafast -tune zerolatency -pix_fmt yuv420p -g 15 -keyint_min 15
    -sc_threshold 0)
# What is sent at a constant pace must have a constant bit rate.
set(x264_constant ${x264} -b:v 250k -minrate 250k -maxrate 250k -bufsize 125k
    -x264-params nal-hrd=cbr)
set(aac -c:a aac -b:a 48k -ac 2)
set(transport_stream -f mpegts -muxrate 480k -pcr_period 20 -metadata service_name=Test)

function(vantiro_write_subtitles file text)
    file(CONFIGURE OUTPUT ${streams_dir}/${file} @ONLY
         CONTENT "1\n00:00:01,000 --> 00:00:20,000\n@text@\n")
endfunction()
vantiro_write_subtitles(subtitles.srt "<font size=\"72\"><b>SUBTITLE FILE</b></font>")
vantiro_write_subtitles(english.srt "English words")
vantiro_write_subtitles(french.srt "Mots français")

# The same text every second, so that a track chosen late shows soon.
function(vantiro_write_long_subtitles file text)
    set(lines)
    foreach(number RANGE 1 119)
        math(EXPR minute "${number} / 60")
        math(EXPR second "${number} % 60")
        if(second LESS 10)
            set(second 0${second})
        endif()
        string(APPEND lines "${number}\n00:0${minute}:${second},000 --> "
                            "00:0${minute}:${second},900\n${text}\n\n")
    endforeach()
    file(CONFIGURE OUTPUT ${streams_dir}/${file} @ONLY CONTENT "${lines}")
endfunction()
vantiro_write_long_subtitles(words.srt "English words")
vantiro_write_long_subtitles(mots.srt "Deux lignes de mots<br>et encore quelques autres mots")
vantiro_write_long_subtitles(large.srt "<font size=\"60\"><b>SUBTITLE FILE</b></font>")

set(streams)
function(vantiro_stream file)
    add_custom_command(OUTPUT ${streams_dir}/${file}
        COMMAND ${ffmpeg} ${ARGN} ${streams_dir}/${file}
        WORKING_DIRECTORY ${streams_dir}
        DEPENDS ${CMAKE_CURRENT_LIST_DIR}/Streams.cmake
        COMMENT "Making stream ${file}"
        VERBATIM)
    list(APPEND streams ${streams_dir}/${file})
    set(streams ${streams} PARENT_SCOPE)
endfunction()

vantiro_stream(live.ts ${picture} ${tone} -t 180 ${x264_constant} ${aac} ${transport_stream})
vantiro_stream(short.ts ${picture} ${tone} -t 5 ${x264_constant} ${aac} ${transport_stream})
# Parts of a channel: twelve seconds as before.ts begins them, of another kind or at another time.
set(part -t 12 -tables_version 1 ${transport_stream} -output_ts_offset)
vantiro_stream(before.ts ${picture} ${tone} -t 6 ${x264_constant} ${aac} ${transport_stream})
vantiro_stream(codec.ts ${picture} ${tone} -c:v mpeg2video -g 15 -b:v 250k -minrate 250k
    -maxrate 250k -bufsize 500k -c:a mp2 -b:a 64k ${part} 6)
vantiro_stream(larger.ts -f lavfi -i testsrc2=size=640x360:rate=15 ${tone} ${x264_constant} ${aac}
    ${part} 6)
vantiro_stream(two-tracks.ts ${picture} ${tone} -f lavfi -i sine=frequency=880:sample_rate=48000
    -map 0:v -map 1:a -map 2:a ${x264_constant} ${aac} ${part} 6)
vantiro_stream(hour-later.ts ${picture} ${tone} ${x264_constant} ${aac} ${part} 3600)
# The clock of 33 bits, at 90 kHz, wraps after 95443.7 seconds.
vantiro_stream(wrap.ts ${picture} ${tone} ${x264_constant} ${aac} ${part} 95438)

# In grey and as wide as the tests' screen, so that it fills it and differs from the others.
vantiro_stream(grey.ts -f lavfi -i testsrc2=size=320x200:rate=15,hue=s=0 ${tone} -t 30
    ${x264_constant} ${aac} ${transport_stream})
vantiro_stream(film.mp4 ${picture} ${tone} -t 60 ${x264} -b:v 150k ${aac})
vantiro_stream(film-faststart.mp4 ${picture} ${tone} -t 60 ${x264} -b:v 150k ${aac}
    -movflags +faststart)
vantiro_stream(silent.mp4 ${picture} -t 10 ${x264} -b:v 150k)
vantiro_stream(audio.mp3 ${tone} -t 10 -c:a libmp3lame -b:a 64k)
vantiro_stream(hls/index.m3u8 ${picture} ${tone} -t 30 ${x264} -b:v 150k ${aac}
    -force_key_frames "expr:gte(t,n_forced*2)"
    -f hls -hls_time 2 -hls_list_size 0 -hls_playlist_type vod
    -hls_segment_filename ${streams_dir}/hls/segment%02d.ts)
vantiro_stream(tracks.mkv
    -f lavfi -i testsrc2=size=320x180:rate=30000/1001 ${tone}
    -f lavfi -i sine=frequency=880:sample_rate=48000
    -i ${streams_dir}/english.srt -i ${streams_dir}/french.srt
    -map 0:v -map 1:a -map 2:a -map 3:s -map 4:s -t 20
    ${x264} -b:v 150k ${aac} -c:s srt
    -metadata:s:a:0 language=eng -metadata:s:a:0 title=English
    -metadata:s:a:1 language=deu -metadata:s:a:1 title=Deutsch
    -metadata:s:s:0 language=eng -metadata:s:s:0 title=English
    -metadata:s:s:1 language=fra -metadata:s:s:1 title=Français
    -disposition:s:0 0 -disposition:s:1 0)
# Its subtitles show by themselves.
vantiro_stream(default-subtitles.mkv
    ${picture} ${tone} -i ${streams_dir}/english.srt -map 0:v -map 1:a -map 2:s -t 20
    ${x264} -b:v 150k ${aac} -c:s srt -metadata:s:s:0 language=eng -disposition:s:0 default+forced)

# Nothing but dark blue, on which subtitles stand out.
vantiro_stream(subtitled.mkv
    -f lavfi -i color=c=0x000060:size=320x180:rate=10 ${tone}
    -f lavfi -i sine=frequency=880:sample_rate=48000
    -i ${streams_dir}/words.srt -i ${streams_dir}/mots.srt
    -map 0:v -map 1:a -map 2:a -map 3:s -map 4:s -t 120
    ${x264} -b:v 50k ${aac} -c:s srt
    -metadata:s:a:0 title=English -metadata:s:a:1 "title=Tom & Jerry"
    -metadata:s:s:0 title=English -metadata:s:s:1 "title=Arts & Lettres"
    -disposition:s:0 0 -disposition:s:1 0)

add_custom_target(vantiro_streams ALL DEPENDS ${streams})
