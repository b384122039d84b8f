<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="choose_output_folder">
        <source>Choose the Output Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="supported_files">
        <source>Supported files</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="trusted_folder_column">
        <source>Folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="General">
        <source>General</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="Metadata">
        <source>Metadata</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="Trusted Paths">
        <source>Trusted Paths</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="trusted_folders_panel">
        <source>Add Trusted Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="trusted_folders_panel_add">
        <source>Add</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="Preferences">
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="debug_menu">
        <source>Debug</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="debug_crash">
        <source>Crash</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="import_panel_title">
        <source>Import movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="export_waiting" numerus="yes">
        <source>Waiting for frame %1 of %2 for %n second(s)</source>
        <translation>
            <numerusform>Waiting for frame %1 of %2 for %n second</numerusform>
            <numerusform>Waiting for frame %1 of %2 for %n seconds</numerusform>
        </translation>
    </message>
    <message id="status_failures" numerus="yes">
        <source>Trouble with %n movie(s): %1</source>
        <translation>
            <numerusform>Trouble with %n movie: %1</numerusform>
            <numerusform>Trouble with %n movies: %1</numerusform>
        </translation>
    </message>
    <message id="about_title">
        <source>About Tessarine</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="about_text">
        <source>Turns movie files into collages: one picture that shows a whole movie.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="column_thumbnail">
        <source>Thumbnail</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="cell_thumbnail">
        <source>Picture from %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="column_summary">
        <source>Summary</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="cell_summary">
        <source>Preview of the collage of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="column_title">
        <source>Title</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="column_grids">
        <source>Grids</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="cell_grids">
        <source>Rows: %1, columns: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="column_description">
        <source>Description</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="library_drag_tip">
        <source>Drop movies or folders here</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="progress_title_loading">
        <source>Loading Movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="progress_title_export">
        <source>Making Collages</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="preview_name">
        <source>Preview of the collage</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="OK">
        <source>OK</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="WrongNumberInput">
        <source>This number is too small: rows and columns begin at 1, gaps, margin and frames at 0.</source>
        <oldsource>This number is too small</oldsource>
        <translation type="unfinished"></translation>
    </message>
    <message id="slider_start_handle">
        <source>Start handle</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="slider_end_handle">
        <source>End handle</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="WrongTimeInput">
        <source>This time is outside the movie, or the start would come after the end.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="time_hours">
        <source>hours</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="time_minutes">
        <source>minutes</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="time_seconds">
        <source>seconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="status_no_output_folder">
        <source>No collages can be written into %1. Choose another output folder.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="authorize_panel_title">
        <source>Authorize Access to “%1”</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KTCustomCollageWndCtl</name>
    <message id="editor_title">
        <source>The movie being edited</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_start">
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_start_tip">
        <source>Time of the first tile (hours : minutes : seconds)</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_range">
        <source>Clip range</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_range_tip">
        <source>The stretch of the movie that the tiles show</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_end">
        <source>End</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_end_tip">
        <source>Time of the last tile (hours : minutes : seconds)</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_grid">
        <source>Grid</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_rows">
        <source>Rows</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_columns">
        <source>Columns</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_tile_width">
        <source>Tile width</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_pixels">
        <source>px</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_tile_height">
        <source>Tile height</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_automatic">
        <source>Automatic</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_automatic_tip">
        <source>Keeps the shape of the movie</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_gaps">
        <source>Gaps</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_horizontal">
        <source>Horizontal</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_horizontal_gaps">
        <source>Horizontal gaps</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_vertical">
        <source>Vertical</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_vertical_gaps">
        <source>Vertical gaps</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_margin">
        <source>Margin</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_width">
        <source>Width</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_margin_width">
        <source>Width of the margin</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_margin_slider">
        <source>Width of the margin, slider</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_background">
        <source>Background</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_background_color">
        <source>Background colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_tile_frame">
        <source>Tile frame</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_frame_width">
        <source>Width of the tile frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_frame_slider">
        <source>Width of the tile frames, slider</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_color">
        <source>Colour</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_frame_color">
        <source>Colour of the tile frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_shadow">
        <source>Shadow</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_shadow_tip">
        <source>Each tile casts a shadow; the preview shows none</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_set_as_default">
        <source>Set as default</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_set_as_default_tip">
        <source>Movies loaded from now on start with these settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_apply_to_all">
        <source>Apply to all</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_apply_to_all_tip">
        <source>Gives these settings to every movie of the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_previous">
        <source>Previous</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_previous_tip">
        <source>Keeps the settings and goes on with the movie above (Alt+Left)</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_next">
        <source>Next</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_next_tip">
        <source>Keeps the settings and goes on with the movie below (Alt+Right)</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_cancel">
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="editor_done">
        <source>Done</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MASPreferencesWindow</name>
    <message id="preferences_panes">
        <source>Panes</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindowController</name>
    <message id="main_movie_list">
        <source>Movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_output_folder">
        <source>Output folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_choose">
        <source>Choose…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_choose_description">
        <source>Chooses the folder for collages</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_open">
        <source>Open</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_open_description">
        <source>Shows the output folder in the file browser</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_same_as_origin">
        <source>Same as origin</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_same_as_origin_tip">
        <source>Writes each collage beside its movie</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_start">
        <source>Start</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_start_description">
        <source>Makes the collages of all movies</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu_file">
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu_edit">
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu_collage">
        <source>&amp;Collage</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="menu_help">
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="main_toolbar">
        <source>Toolbar</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_import">
        <source>Import</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_import_tip">
        <source>Adds movies or folders to the list</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_delete">
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_delete_tip">
        <source>Takes the selected movies off the list; the files stay</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_clear">
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_clear_tip">
        <source>Takes all movies off the list; the files stay</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_select_all">
        <source>Select All</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_custom_collage">
        <source>Custom Collage</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_preferences">
        <source>Preferences</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_start">
        <source>Start Export</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_quit">
        <source>Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_about">
        <source>About Tessarine</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="action_custom_collage_tip">
        <source>Shapes the collage of the selected movie, or of all</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RBGeneralPreferViewCtl</name>
    <message id="general_after_export">
        <source>After a collage is made:</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_reveal">
        <source>Show it in the file browser</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_open">
        <source>Open it</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_clear">
        <source>Empty the movie list</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_format">
        <source>Image &amp;format:</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_format_name">
        <source>Image format</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_quality">
        <source>Quality:</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_quality_reason">
        <source>Images are always written in the standard quality of their format.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="general_quality_name">
        <source>Quality</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RBMetadataPrefViewCtl</name>
    <message id="metadata_heading">
        <source>Heading of the collage</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_file_name">
        <source>File name</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_file_size">
        <source>File size</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_resolution">
        <source>Resolution</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_duration">
        <source>Duration</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_date">
        <source>Date</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_fps">
        <source>Frame rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_codec">
        <source>Codec</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_bit_rate">
        <source>Bit rate</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_text_color">
        <source>Text &amp;colour:</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_text_color_name">
        <source>Colour of the heading</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_check_all">
        <source>&amp;All</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_uncheck_all">
        <source>&amp;None</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_stamps">
        <source>Time stamps of the frames</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_time_stamp">
        <source>Show the time</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_milliseconds">
        <source>With milliseconds</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_corner">
        <source>C&amp;orner:</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_corner_name">
        <source>Corner of the time stamps</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="corner_lower_right">
        <source>Lower right</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="corner_lower_left">
        <source>Lower left</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="corner_upper_right">
        <source>Upper right</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="corner_upper_left">
        <source>Upper left</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_stamp_color">
        <source>Co&amp;lour:</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="metadata_stamp_color_name">
        <source>Colour of the time stamps</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VXLoadingWndCtl</name>
    <message id="progress_image">
        <source>Picture in progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="progress_bar">
        <source>Progress</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="progress_cancel">
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>VXTrustedPathViewCtl</name>
    <message id="trusted_explanation">
        <source>Tessarine may read movies from these folders and write collages into them.</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="trusted_table">
        <source>Trusted folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="trusted_add">
        <source>&amp;Add…</source>
        <translation type="unfinished"></translation>
    </message>
    <message id="trusted_remove">
        <source>&amp;Remove</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
