<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name></name>
    <message id="choose_output_folder">
        <source>Choose the Output Folder</source>
        <translation>选择输出文件夹</translation>
    </message>
    <message id="supported_files">
        <source>Supported files</source>
        <translation>支持的文件</translation>
    </message>
    <message id="trusted_folder_column">
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message id="General">
        <source>General</source>
        <translation>通用</translation>
    </message>
    <message id="Metadata">
        <source>Metadata</source>
        <translation>元数据</translation>
    </message>
    <message id="Trusted Paths">
        <source>Trusted Paths</source>
        <translation>受信任的路径</translation>
    </message>
    <message id="trusted_folders_panel">
        <source>Add Trusted Folders</source>
        <translation>添加受信任的文件夹</translation>
    </message>
    <message id="trusted_folders_panel_add">
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message id="Preferences">
        <source>Preferences</source>
        <translation>偏好设置</translation>
    </message>
    <message id="debug_menu">
        <source>Debug</source>
        <translation>调试</translation>
    </message>
    <message id="debug_crash">
        <source>Crash</source>
        <translation>崩溃</translation>
    </message>
    <message id="import_panel_title">
        <source>Import movies</source>
        <translation>导入影片</translation>
    </message>
    <message id="export_waiting" numerus="yes">
        <source>Waiting for frame %1 of %2 for %n second(s)</source>
        <translation>
            <numerusform>正在等待第 %1 帧（共 %2 帧），已等待 %n 秒</numerusform>
        </translation>
    </message>
    <message id="about_title">
        <source>About Tessarine</source>
        <translation>关于 Tessarine</translation>
    </message>
    <message id="about_text">
        <source>Turns movie files into collages: one picture that shows a whole movie.</source>
        <translation>把影片文件制成拼图：用一张图片呈现整部影片。</translation>
    </message>
    <message id="column_thumbnail">
        <source>Thumbnail</source>
        <translation>缩略图</translation>
    </message>
    <message id="cell_thumbnail">
        <source>Picture from %1</source>
        <translation>%1 的画面</translation>
    </message>
    <message id="column_summary">
        <source>Summary</source>
        <translation>概览</translation>
    </message>
    <message id="cell_summary">
        <source>Preview of the collage of %1</source>
        <translation>%1 的拼图预览</translation>
    </message>
    <message id="column_title">
        <source>Title</source>
        <translation>标题</translation>
    </message>
    <message id="column_grids">
        <source>Grids</source>
        <translation>网格</translation>
    </message>
    <message id="cell_grids">
        <source>Rows: %1, columns: %2</source>
        <translation>%1 行，%2 列</translation>
    </message>
    <message id="column_description">
        <source>Description</source>
        <translation>说明</translation>
    </message>
    <message id="library_drag_tip">
        <source>Drop movies or folders here</source>
        <translation>将影片或文件夹拖放到这里</translation>
    </message>
    <message id="progress_title_loading">
        <source>Loading Movies</source>
        <translation>正在载入影片</translation>
    </message>
    <message id="progress_title_export">
        <source>Making Collages</source>
        <translation>正在生成拼图</translation>
    </message>
    <message id="preview_name">
        <source>Preview of the collage</source>
        <translation>拼图预览</translation>
    </message>
    <message id="OK">
        <source>OK</source>
        <translation>好</translation>
    </message>
    <message id="WrongNumberInput">
        <source>This number is too small: rows and columns begin at 1, gaps, margin and frames at 0.</source>
        <oldsource>This number is too small</oldsource>
        <translation>数值太小：行数和列数至少为 1，间距、边距和边框至少为 0。</translation>
    </message>
    <message id="slider_start_handle">
        <source>Start handle</source>
        <translation>起点滑块</translation>
    </message>
    <message id="slider_end_handle">
        <source>End handle</source>
        <translation>终点滑块</translation>
    </message>
    <message id="WrongTimeInput">
        <source>This time is outside the movie, or the start would come after the end.</source>
        <translation>时间超出影片范围，或者开始晚于结束。</translation>
    </message>
    <message id="time_hours">
        <source>hours</source>
        <translation>小时</translation>
    </message>
    <message id="time_minutes">
        <source>minutes</source>
        <translation>分</translation>
    </message>
    <message id="time_seconds">
        <source>seconds</source>
        <translation>秒</translation>
    </message>
    <message id="status_no_output_folder">
        <source>No collages can be written into %1. Choose another output folder.</source>
        <translation>无法将拼图写入 %1，请选择其他输出文件夹。</translation>
    </message>
    <message id="authorize_panel_title">
        <source>Authorize Access to “%1”</source>
        <translation>授权访问“%1”</translation>
    </message>
    <message id="general_frames_exact">
        <source>The same pictures, faster</source>
        <translation>相同的画面，更快</translation>
    </message>
    <message id="general_frames_key">
        <source>Nearest key frames, fastest</source>
        <translation>最近的关键帧，最快</translation>
    </message>
    <message id="general_frames_tool">
        <source>As the ffmpeg tool gives them</source>
        <translation>由 ffmpeg 工具截取</translation>
    </message>
    <message id="list_summary" numerus="yes">
        <source>%n movie(s), %1 in all</source>
        <translation>
            <numerusform>%n 部影片，总时长 %1</numerusform>
        </translation>
    </message>
    <message id="list_summary_filtered" numerus="yes">
        <source>%1 of %n movie(s) shown, all are exported; %2 in all</source>
        <translation>
            <numerusform>显示 %n 部影片中的 %1 部，导出时包括全部；总时长 %2</numerusform>
        </translation>
    </message>
    <message id="undo_remove" numerus="yes">
        <source>Remove %n Movie(s)</source>
        <translation>
            <numerusform>移除 %n 部影片</numerusform>
        </translation>
    </message>
    <message id="undo_clear">
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message id="undo_move" numerus="yes">
        <source>Move %n Movie(s)</source>
        <translation>
            <numerusform>移动 %n 部影片</numerusform>
        </translation>
    </message>
    <message id="undo_clear_exported">
        <source>Clear after Export</source>
        <translation>导出后清空</translation>
    </message>
    <message id="undo_apply_to_all">
        <source>Apply to All</source>
        <translation>应用到全部</translation>
    </message>
    <message id="undo_change_collage">
        <source>Change Collage of %1</source>
        <translation>修改“%1”的拼图</translation>
    </message>
    <message id="filter_label">
        <source>Filter:</source>
        <translation>筛选：</translation>
    </message>
    <message id="filter_placeholder">
        <source>Words in the name or the path</source>
        <translation>名称或路径中的文字</translation>
    </message>
    <message id="filter_field">
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message id="filter_close">
        <source>Close the filter</source>
        <translation>关闭筛选</translation>
    </message>
    <message id="sort_name">
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message id="sort_folder">
        <source>Folder</source>
        <translation>文件夹</translation>
    </message>
    <message id="sort_duration">
        <source>Duration</source>
        <translation>时长</translation>
    </message>
    <message id="sort_resolution">
        <source>Resolution</source>
        <translation>分辨率</translation>
    </message>
    <message id="sort_bit_rate">
        <source>Bit Rate</source>
        <translation>码率</translation>
    </message>
    <message id="sort_reverse">
        <source>Reverse Order</source>
        <translation>反转顺序</translation>
    </message>
    <message id="undo_sort">
        <source>Sort by %1</source>
        <translation>按%1排序</translation>
    </message>
    <message id="action_undo">
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message id="action_redo">
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message id="action_undo_step">
        <source>Undo %1</source>
        <translation>撤销：%1</translation>
    </message>
    <message id="action_redo_step">
        <source>Redo %1</source>
        <translation>重做：%1</translation>
    </message>
    <message id="editor_size_impossible">
        <source>A collage of %1 × %2 pixels cannot be made</source>
        <translation>无法制作 %1 × %2 像素的拼图</translation>
    </message>
    <message id="editor_size_text">
        <source>%1 × %2 pixels, %3 megapixels</source>
        <translation>%1 × %2 像素，%3 百万像素</translation>
    </message>
    <message id="editor_range_of_done">
        <source>Done will store %1 to %2</source>
        <translation>按“完成”将保存 %1 至 %2</translation>
    </message>
    <message id="editor_place">
        <source>Movie %1 of %2</source>
        <translation>第 %1 部，共 %2 部</translation>
    </message>
    <message id="editor_waits_for_done">
        <source>“Apply to all” and “Set as default” act on Done, not on Previous and Next</source>
        <translation>“应用到全部”和“设为默认”只在按“完成”时生效，“上一个”和“下一个”不会触发</translation>
    </message>
    <message id="column_title_tip">
        <source>Sorts the list by name</source>
        <translation>按名称排序列表</translation>
    </message>
    <message id="column_description_tip">
        <source>Sorts the list by resolution</source>
        <translation>按分辨率排序列表</translation>
    </message>
    <message id="export_cancelled" numerus="yes">
        <source>Cancelled: %1 of %n made</source>
        <translation>
            <numerusform>已取消：完成 %1 个，共 %n 个</numerusform>
        </translation>
    </message>
    <message id="export_made" numerus="yes">
        <source>%n collage(s) made</source>
        <translation>
            <numerusform>已制作 %n 个拼图</numerusform>
        </translation>
    </message>
    <message id="export_incomplete" numerus="yes">
        <source>%n with missing frames</source>
        <translation>
            <numerusform>%n 个缺少画面</numerusform>
        </translation>
    </message>
    <message id="export_failed" numerus="yes">
        <source>%n failed</source>
        <translation>
            <numerusform>%n 个失败</numerusform>
        </translation>
    </message>
    <message id="details_title">
        <source>Details of the Export</source>
        <translation>导出详情</translation>
    </message>
    <message id="details_table">
        <source>Movies and what has become of them</source>
        <translation>各影片的结果</translation>
    </message>
    <message id="details_movie">
        <source>Movie</source>
        <oldsource>MovieImage or reason</oldsource>
        <translation>影片</translation>
    </message>
    <message id="details_outcome">
        <source>Image or reason</source>
        <translation>图片或原因</translation>
    </message>
    <message id="details_retry">
        <source>&amp;Retry</source>
        <translation>重试(&amp;R)</translation>
    </message>
    <message id="details_copy">
        <source>C&amp;opy</source>
        <translation>复制(&amp;O)</translation>
    </message>
    <message id="result_show_in_folder">
        <source>Show in Folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message id="result_details">
        <source>Details…</source>
        <translation>详情…</translation>
    </message>
    <message id="progress_movie">
        <source>Movie %1 of %2</source>
        <translation>第 %1 部，共 %2 部</translation>
    </message>
    <message id="notification_show">
        <source>Show</source>
        <translation>显示</translation>
    </message>
</context>
<context>
    <name>KTCustomCollageWndCtl</name>
    <message id="editor_title">
        <source>The movie being edited</source>
        <translation>正在编辑的影片</translation>
    </message>
    <message id="editor_start">
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message id="editor_start_tip">
        <source>Time of the first tile (hours : minutes : seconds)</source>
        <translation>第一格的时间（时:分:秒）</translation>
    </message>
    <message id="editor_range">
        <source>Clip range</source>
        <translation>片段范围</translation>
    </message>
    <message id="editor_range_tip">
        <source>The stretch of the movie that the tiles show</source>
        <translation>各格所显示的影片片段</translation>
    </message>
    <message id="editor_end">
        <source>End</source>
        <translation>结束</translation>
    </message>
    <message id="editor_end_tip">
        <source>Time of the last tile (hours : minutes : seconds)</source>
        <translation>最后一格的时间（时:分:秒）</translation>
    </message>
    <message id="editor_grid">
        <source>Grid</source>
        <translation>网格</translation>
    </message>
    <message id="editor_rows">
        <source>Rows</source>
        <translation>行数</translation>
    </message>
    <message id="editor_columns">
        <source>Columns</source>
        <translation>列数</translation>
    </message>
    <message id="editor_tile_width">
        <source>Tile width</source>
        <translation>格宽</translation>
    </message>
    <message id="editor_pixels">
        <source>px</source>
        <translation>像素</translation>
    </message>
    <message id="editor_tile_height">
        <source>Tile height</source>
        <translation>格高</translation>
    </message>
    <message id="editor_automatic">
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
    <message id="editor_automatic_tip">
        <source>Keeps the shape of the movie</source>
        <translation>保持影片的画面比例</translation>
    </message>
    <message id="editor_gaps">
        <source>Gaps</source>
        <translation>间距</translation>
    </message>
    <message id="editor_horizontal">
        <source>Horizontal</source>
        <translation>水平</translation>
    </message>
    <message id="editor_horizontal_gaps">
        <source>Horizontal gaps</source>
        <translation>水平间距</translation>
    </message>
    <message id="editor_vertical">
        <source>Vertical</source>
        <translation>垂直</translation>
    </message>
    <message id="editor_vertical_gaps">
        <source>Vertical gaps</source>
        <translation>垂直间距</translation>
    </message>
    <message id="editor_margin">
        <source>Margin</source>
        <translation>边距</translation>
    </message>
    <message id="editor_width">
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message id="editor_margin_width">
        <source>Width of the margin</source>
        <translation>边距宽度</translation>
    </message>
    <message id="editor_margin_slider">
        <source>Width of the margin, slider</source>
        <translation>边距宽度滑块</translation>
    </message>
    <message id="editor_background">
        <source>Background</source>
        <translation>背景</translation>
    </message>
    <message id="editor_background_color">
        <source>Background colour</source>
        <translation>背景颜色</translation>
    </message>
    <message id="editor_tile_frame">
        <source>Tile frame</source>
        <translation>边框</translation>
    </message>
    <message id="editor_frame_width">
        <source>Width of the tile frames</source>
        <translation>边框宽度</translation>
    </message>
    <message id="editor_frame_slider">
        <source>Width of the tile frames, slider</source>
        <translation>边框宽度滑块</translation>
    </message>
    <message id="editor_color">
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message id="editor_frame_color">
        <source>Colour of the tile frames</source>
        <translation>边框颜色</translation>
    </message>
    <message id="editor_shadow">
        <source>Shadow</source>
        <translation>阴影</translation>
    </message>
    <message id="editor_shadow_tip">
        <source>Each tile casts a shadow; the preview shows none</source>
        <translation>每格带阴影；预览中不显示</translation>
    </message>
    <message id="editor_set_as_default">
        <source>Set as default</source>
        <translation>设为默认</translation>
    </message>
    <message id="editor_set_as_default_tip">
        <source>Movies loaded from now on start with these settings</source>
        <translation>以后载入的影片采用这些设置</translation>
    </message>
    <message id="editor_apply_to_all">
        <source>Apply to all</source>
        <translation>应用到全部</translation>
    </message>
    <message id="editor_apply_to_all_tip">
        <source>Gives these settings to every movie of the list</source>
        <translation>将这些设置用于列表中的所有影片</translation>
    </message>
    <message id="editor_previous">
        <source>Previous</source>
        <translation>上一个</translation>
    </message>
    <message id="editor_previous_tip">
        <source>Keeps the settings and goes on with the movie above (Alt+Left)</source>
        <translation>保留设置并转到上一部影片（Alt+←）</translation>
    </message>
    <message id="editor_next">
        <source>Next</source>
        <translation>下一个</translation>
    </message>
    <message id="editor_next_tip">
        <source>Keeps the settings and goes on with the movie below (Alt+Right)</source>
        <translation>保留设置并转到下一部影片（Alt+→）</translation>
    </message>
    <message id="editor_cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="editor_done">
        <source>Done</source>
        <translation>完成</translation>
    </message>
    <message id="editor_layout">
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message id="editor_size">
        <source>Size of the finished collage</source>
        <translation>成品拼图的大小</translation>
    </message>
    <message id="editor_note">
        <source>What Done will do</source>
        <translation>按“完成”的结果</translation>
    </message>
    <message id="editor_reset">
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message id="editor_reset_tip">
        <source>Gives this movie the settings that a newly added movie has</source>
        <translation>恢复为新添加影片的设置</translation>
    </message>
</context>
<context>
    <name>MASPreferencesWindow</name>
    <message id="preferences_panes">
        <source>Panes</source>
        <translation>页面</translation>
    </message>
</context>
<context>
    <name>MainWindowController</name>
    <message id="main_movie_list">
        <source>Movies</source>
        <translation>影片</translation>
    </message>
    <message id="main_output_folder">
        <source>Output folder</source>
        <translation>输出文件夹</translation>
    </message>
    <message id="main_choose">
        <source>Choose…</source>
        <translation>选择…</translation>
    </message>
    <message id="main_choose_description">
        <source>Chooses the folder for collages</source>
        <translation>选择存放拼图的文件夹</translation>
    </message>
    <message id="main_open">
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message id="main_open_description">
        <source>Shows the output folder in the file browser</source>
        <translation>在文件管理器中显示输出文件夹</translation>
    </message>
    <message id="main_same_as_origin">
        <source>Same as origin</source>
        <translation>与原文件相同</translation>
    </message>
    <message id="main_same_as_origin_tip">
        <source>Writes each collage beside its movie</source>
        <translation>把每张拼图存放在其影片旁边</translation>
    </message>
    <message id="main_start">
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message id="main_start_description">
        <source>Makes the collages of all movies</source>
        <translation>为所有影片生成拼图</translation>
    </message>
    <message id="menu_file">
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message id="menu_edit">
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message id="menu_collage">
        <source>&amp;Collage</source>
        <translation>拼图(&amp;C)</translation>
    </message>
    <message id="menu_help">
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message id="main_toolbar">
        <source>Toolbar</source>
        <translation>工具栏</translation>
    </message>
    <message id="action_import">
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message id="action_import_tip">
        <source>Adds movies or folders to the list</source>
        <translation>把影片或文件夹添加到列表</translation>
    </message>
    <message id="action_delete">
        <source>Delete</source>
        <translation>移除</translation>
    </message>
    <message id="action_delete_tip">
        <source>Takes the selected movies off the list; the files stay</source>
        <translation>从列表中移除所选影片；文件保留</translation>
    </message>
    <message id="action_clear">
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message id="action_clear_tip">
        <source>Takes all movies off the list; the files stay</source>
        <translation>从列表中移除所有影片；文件保留</translation>
    </message>
    <message id="action_select_all">
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message id="action_custom_collage">
        <source>Custom Collage</source>
        <translation>自定义拼图</translation>
    </message>
    <message id="action_preferences">
        <source>Preferences</source>
        <translation>偏好设置</translation>
    </message>
    <message id="action_start">
        <source>Start Export</source>
        <translation>开始导出</translation>
    </message>
    <message id="action_quit">
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message id="action_about">
        <source>About Tessarine</source>
        <translation>关于 Tessarine</translation>
    </message>
    <message id="action_custom_collage_tip">
        <source>Shapes the collage of the selected movie, or of all</source>
        <translation>调整所选影片或全部影片的拼图</translation>
    </message>
    <message id="menu_sort">
        <source>Sort By</source>
        <translation>排序方式</translation>
    </message>
    <message id="action_move_up">
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message id="action_move_down">
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
    <message id="action_filter">
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
</context>
<context>
    <name>RBGeneralPreferViewCtl</name>
    <message id="general_after_export">
        <source>After a collage is made:</source>
        <translation>生成拼图之后：</translation>
    </message>
    <message id="general_reveal">
        <source>Show it in the file browser</source>
        <translation>在文件管理器中显示</translation>
    </message>
    <message id="general_open">
        <source>Open it</source>
        <translation>打开拼图</translation>
    </message>
    <message id="general_clear">
        <source>Empty the movie list</source>
        <translation>清空影片列表</translation>
    </message>
    <message id="general_display_aspect">
        <source>In the shape in which the movie is shown</source>
        <translation>按影片播放时的形状</translation>
    </message>
    <message id="general_format">
        <source>Image &amp;format:</source>
        <translation>图片格式(&amp;F)：</translation>
    </message>
    <message id="general_format_name">
        <source>Image format</source>
        <translation>图片格式</translation>
    </message>
    <message id="general_picture">
        <source>&amp;Picture:</source>
        <translation>画面(&amp;P)：</translation>
    </message>
    <message id="general_picture_name">
        <source>Where pictures come from</source>
        <translation>画面的来源</translation>
    </message>
    <message id="general_quality">
        <source>Quality:</source>
        <translation>质量：</translation>
    </message>
    <message id="general_quality_reason">
        <source>Images are always written in the standard quality of their format.</source>
        <translation>图片始终以其格式的标准质量保存。</translation>
    </message>
    <message id="general_quality_name">
        <source>Quality</source>
        <translation>质量</translation>
    </message>
    <message id="general_deinterlace">
        <source>Without the combs of interlaced movies</source>
        <translation>去除隔行扫描影片的梳状条纹</translation>
    </message>
    <message id="general_tone_map">
        <source>Colours of HDR movies as a screen can show them</source>
        <translation>将 HDR 影片的颜色转换为屏幕可显示的颜色</translation>
    </message>
    <message id="general_skip_blank">
        <source>The next frame, instead of one that is of one colour</source>
        <translation>遇到纯色画面时改用下一个画面</translation>
    </message>
</context>
<context>
    <name>RBMetadataPrefViewCtl</name>
    <message id="metadata_heading">
        <source>Heading of the collage</source>
        <translation>拼图的标题区</translation>
    </message>
    <message id="metadata_file_name">
        <source>File name</source>
        <translation>文件名</translation>
    </message>
    <message id="metadata_file_size">
        <source>File size</source>
        <translation>文件大小</translation>
    </message>
    <message id="metadata_resolution">
        <source>Resolution</source>
        <translation>分辨率</translation>
    </message>
    <message id="metadata_duration">
        <source>Duration</source>
        <translation>时长</translation>
    </message>
    <message id="metadata_date">
        <source>Date</source>
        <translation>日期</translation>
    </message>
    <message id="metadata_fps">
        <source>Frame rate</source>
        <translation>帧率</translation>
    </message>
    <message id="metadata_codec">
        <source>Codec</source>
        <translation>编码</translation>
    </message>
    <message id="metadata_bit_rate">
        <source>Bit rate</source>
        <translation>码率</translation>
    </message>
    <message id="metadata_text_color">
        <source>Text &amp;colour:</source>
        <translation>文字颜色(&amp;C)：</translation>
    </message>
    <message id="metadata_text_color_name">
        <source>Colour of the heading</source>
        <translation>标题区的颜色</translation>
    </message>
    <message id="metadata_check_all">
        <source>&amp;All</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message id="metadata_uncheck_all">
        <source>&amp;None</source>
        <translation>全不选(&amp;N)</translation>
    </message>
    <message id="metadata_stamps">
        <source>Time stamps of the frames</source>
        <translation>画面的时间戳</translation>
    </message>
    <message id="metadata_time_stamp">
        <source>Show the time</source>
        <translation>显示时间</translation>
    </message>
    <message id="metadata_milliseconds">
        <source>With milliseconds</source>
        <translation>包含毫秒</translation>
    </message>
    <message id="metadata_corner">
        <source>C&amp;orner:</source>
        <translation>位置(&amp;O)：</translation>
    </message>
    <message id="metadata_corner_name">
        <source>Corner of the time stamps</source>
        <translation>时间戳的位置</translation>
    </message>
    <message id="corner_lower_right">
        <source>Lower right</source>
        <translation>右下</translation>
    </message>
    <message id="corner_lower_left">
        <source>Lower left</source>
        <translation>左下</translation>
    </message>
    <message id="corner_upper_right">
        <source>Upper right</source>
        <translation>右上</translation>
    </message>
    <message id="corner_upper_left">
        <source>Upper left</source>
        <translation>左上</translation>
    </message>
    <message id="metadata_stamp_color">
        <source>Co&amp;lour:</source>
        <translation>颜色(&amp;L)：</translation>
    </message>
    <message id="metadata_stamp_color_name">
        <source>Colour of the time stamps</source>
        <translation>时间戳的颜色</translation>
    </message>
</context>
<context>
    <name>VXLoadingWndCtl</name>
    <message id="progress_image">
        <source>Picture in progress</source>
        <translation>正在处理的画面</translation>
    </message>
    <message id="progress_bar">
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message id="progress_cancel">
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message id="progress_overall">
        <source>Progress of the whole export</source>
        <translation>整个导出的进度</translation>
    </message>
</context>
<context>
    <name>VXTrustedPathViewCtl</name>
    <message id="trusted_explanation">
        <source>Tessarine may read movies from these folders and write collages into them.</source>
        <translation>Tessarine 可以读取这些文件夹中的影片，并把拼图存放到其中。</translation>
    </message>
    <message id="trusted_table">
        <source>Trusted folders</source>
        <translation>受信任的文件夹</translation>
    </message>
    <message id="trusted_add">
        <source>&amp;Add…</source>
        <translation>添加(&amp;A)…</translation>
    </message>
    <message id="trusted_remove">
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
</context>
</TS>
