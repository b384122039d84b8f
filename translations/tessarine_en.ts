<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="export_waiting" numerus="yes">
        <source>Waiting for frame %1 of %2 for %n second(s)</source>
        <translation>
            <numerusform>Waiting for frame %1 of %2 for %n second</numerusform>
            <numerusform>Waiting for frame %1 of %2 for %n seconds</numerusform>
        </translation>
    </message>
    <message id="list_summary" numerus="yes">
        <source>%n movie(s), %1 in all</source>
        <translation>
            <numerusform>%n movie, %1 in all</numerusform>
            <numerusform>%n movies, %1 in all</numerusform>
        </translation>
    </message>
    <message id="list_summary_filtered" numerus="yes">
        <source>%1 of %n movie(s) shown, all are exported; %2 in all</source>
        <translation>
            <numerusform>%1 of %n movie shown, all are exported; %2 in all</numerusform>
            <numerusform>%1 of %n movies shown, all are exported; %2 in all</numerusform>
        </translation>
    </message>
    <message id="undo_remove" numerus="yes">
        <source>Remove %n Movie(s)</source>
        <translation>
            <numerusform>Remove %n Movie</numerusform>
            <numerusform>Remove %n Movies</numerusform>
        </translation>
    </message>
    <message id="undo_move" numerus="yes">
        <source>Move %n Movie(s)</source>
        <translation>
            <numerusform>Move %n Movie</numerusform>
            <numerusform>Move %n Movies</numerusform>
        </translation>
    </message>
    <message id="export_cancelled" numerus="yes">
        <source>Cancelled: %1 of %n made</source>
        <translation>
            <numerusform>Cancelled: %1 of %n made</numerusform>
            <numerusform>Cancelled: %1 of %n made</numerusform>
        </translation>
    </message>
    <message id="export_made" numerus="yes">
        <source>%n collage(s) made</source>
        <translation>
            <numerusform>%n collage made</numerusform>
            <numerusform>%n collages made</numerusform>
        </translation>
    </message>
    <message id="export_incomplete" numerus="yes">
        <source>%n with missing frames</source>
        <translation>
            <numerusform>%n with missing frames</numerusform>
            <numerusform>%n with missing frames</numerusform>
        </translation>
    </message>
    <message id="export_failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n failed</numerusform>
            <numerusform>%n failed</numerusform>
        </translation>
    </message>
</context>
</TS>
