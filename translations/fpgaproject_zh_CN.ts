<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Fpga::DeviceDialog</name>
    <message>
        <source>Change Device</source>
        <translation>更改器件</translation>
    </message>
    <message>
        <source>The project has no device yet.</source>
        <translation>工程尚未选择器件。</translation>
    </message>
    <message>
        <source>Now: %1</source>
        <translation>当前：%1</translation>
    </message>
</context>
<context>
    <name>Fpga::DevicePage</name>
    <message>
        <source>Device</source>
        <translation>器件</translation>
    </message>
    <message>
        <source>Type words to narrow the table down, and choose the device on your board.</source>
        <translation>输入关键字以缩小列表范围，然后选择开发板上的器件。</translation>
    </message>
</context>
<context>
    <name>Fpga::DevicePicker</name>
    <message>
        <source>Filter by part, series, package or speed</source>
        <translation>按型号、系列、封装或速度等级筛选</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Devices</source>
        <translation>器件</translation>
    </message>
    <message>
        <source>The table of devices is missing or empty.</source>
        <translation>器件表缺失或为空。</translation>
    </message>
    <message>
        <source>No device has all of these words in its names.</source>
        <translation>没有器件同时包含所有这些关键字。</translation>
    </message>
    <message>
        <source>%1 of %2 devices</source>
        <translation>%1 / %2 个器件</translation>
    </message>
</context>
<context>
    <name>Fpga::DeviceTableModel</name>
    <message>
        <source>Part</source>
        <translation>型号</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>系列</translation>
    </message>
    <message>
        <source>Package</source>
        <translation>封装</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度等级</translation>
    </message>
    <message>
        <source>Logic Cells</source>
        <translation>逻辑单元</translation>
    </message>
    <message>
        <source>Flip-Flops</source>
        <translation>触发器</translation>
    </message>
    <message>
        <source>RAM Bits</source>
        <translation>RAM 位数</translation>
    </message>
    <message>
        <source>DSP</source>
        <translation>DSP</translation>
    </message>
    <message>
        <source>PLL</source>
        <translation>PLL</translation>
    </message>
    <message>
        <source>User I/O</source>
        <translation>用户 I/O</translation>
    </message>
</context>
<context>
    <name>Fpga::FileActions</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Add Existing Files...</source>
        <translation>添加现有文件...</translation>
    </message>
    <message>
        <source>New File...</source>
        <translation>新建文件...</translation>
    </message>
    <message>
        <source>Disable</source>
        <translation>禁用</translation>
    </message>
    <message>
        <source>Set as Top</source>
        <translation>设为顶层</translation>
    </message>
    <message>
        <source>Remove from Project</source>
        <translation>从工程中移除</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>重命名</translation>
    </message>
    <message>
        <source>Copy Path</source>
        <translation>复制路径</translation>
    </message>
    <message>
        <source>Open Containing Folder</source>
        <translation>打开所在文件夹</translation>
    </message>
    <message>
        <source>Enable</source>
        <translation>启用</translation>
    </message>
    <message>
        <source>Open With</source>
        <translation>打开方式</translation>
    </message>
    <message>
        <source>This Program</source>
        <translation>本程序</translation>
    </message>
    <message>
        <source>System Default Program</source>
        <translation>系统默认程序</translation>
    </message>
    <message>
        <source>Add Existing Files</source>
        <translation>添加现有文件</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be the top of the design.</source>
        <translation>“%1”不能作为设计的顶层。</translation>
    </message>
    <message>
        <source>No module or entity was found in it.</source>
        <translation>其中未找到模块或实体。</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>Top module:</source>
        <translation>顶层模块：</translation>
    </message>
    <message>
        <source>Can not open folder &quot;%1&quot;</source>
        <translation>无法打开文件夹“%1”</translation>
    </message>
    <message>
        <source>The folder does not exist.</source>
        <translation>文件夹不存在。</translation>
    </message>
    <message>
        <source>Change Device...</source>
        <translation>更改器件...</translation>
    </message>
</context>
<context>
    <name>Fpga::FileCreation</name>
    <message>
        <source>The folder cannot be created.</source>
        <translation>无法创建文件夹。</translation>
    </message>
    <message>
        <source>The folder&apos;s path has a space and &quot;-&quot; together, which is not possible.</source>
        <translation>文件夹路径中空格与“-”连用，这是不允许的。</translation>
    </message>
</context>
<context>
    <name>Fpga::FileKind</name>
    <message>
        <source>Verilog</source>
        <translation>Verilog</translation>
    </message>
    <message>
        <source>SystemVerilog</source>
        <translation>SystemVerilog</translation>
    </message>
    <message>
        <source>VHDL</source>
        <translation>VHDL</translation>
    </message>
    <message>
        <source>Timing Constraints</source>
        <translation>时序约束</translation>
    </message>
    <message>
        <source>Physical Constraints</source>
        <translation>物理约束</translation>
    </message>
    <message>
        <source>Synthesis Constraints</source>
        <translation>综合约束</translation>
    </message>
    <message>
        <source>Memory Contents</source>
        <translation>存储器内容</translation>
    </message>
    <message>
        <source>Other Files</source>
        <translation>其他文件</translation>
    </message>
</context>
<context>
    <name>Fpga::FileOpening</name>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>No program is named.</source>
        <translation>未指定程序。</translation>
    </message>
    <message>
        <source>There is no such program in the search path.</source>
        <translation>搜索路径中没有此程序。</translation>
    </message>
    <message>
        <source>The system refused to start it.</source>
        <translation>系统拒绝启动它。</translation>
    </message>
    <message>
        <source>The program does not exist.</source>
        <translation>程序不存在。</translation>
    </message>
    <message>
        <source>It is a folder.</source>
        <translation>它是文件夹。</translation>
    </message>
    <message>
        <source>The file is not executable.</source>
        <translation>文件不可执行。</translation>
    </message>
    <message>
        <source>External Editor</source>
        <translation>外部编辑器</translation>
    </message>
    <message>
        <source>The external editor &quot;%1&quot; could not be started.

Program: %2
Arguments: %3
</source>
        <translation>无法启动外部编辑器“%1”。

程序：%2
参数：%3
</translation>
    </message>
    <message>
        <source>The program %1, which is to run it, does not exist.</source>
        <translation>用于运行它的程序 %1 不存在。</translation>
    </message>
    <message>
        <source>It is neither a program nor a script that names its interpreter.</source>
        <translation>它既不是程序，也不是指明了解释器的脚本。</translation>
    </message>
</context>
<context>
    <name>Fpga::FileTreeDelegate</name>
    <message>
        <source>top</source>
        <translation>顶层</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>已禁用</translation>
    </message>
    <message>
        <source>File name</source>
        <translation>文件名</translation>
    </message>
</context>
<context>
    <name>Fpga::FileTreeModel</name>
    <message numerus="yes">
        <source>%1, %n file(s)</source>
        <translation>
            <numerusform>%1，%n 个文件</numerusform>
        </translation>
    </message>
    <message>
        <source>top module</source>
        <translation>顶层模块</translation>
    </message>
    <message>
        <source>disabled</source>
        <translation>已禁用</translation>
    </message>
    <message>
        <source>missing</source>
        <translation>缺失</translation>
    </message>
    <message>
        <source>Top module: %1</source>
        <translation>顶层模块：%1</translation>
    </message>
    <message>
        <source>Disabled: it is no part of the design.</source>
        <translation>已禁用：不属于设计的一部分。</translation>
    </message>
    <message>
        <source>Missing: %1 does not exist.</source>
        <translation>缺失：%1 不存在。</translation>
    </message>
    <message>
        <source>%1, changed %2</source>
        <translation>%1，修改于 %2</translation>
    </message>
    <message>
        <source>%1 (%2)</source>
        <translation>%1（%2）</translation>
    </message>
</context>
<context>
    <name>Fpga::FpgaProject</name>
    <message>
        <source>Open Project</source>
        <translation>打开工程</translation>
    </message>
    <message>
        <source>Can not open project &quot;%1&quot;</source>
        <translation>无法打开工程“%1”</translation>
    </message>
    <message>
        <source>The file does not exist.</source>
        <translation>文件不存在。</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>这不是文件。</translation>
    </message>
    <message>
        <source>Its name holds a control character, which a project file cannot hold.</source>
        <translation>其名称含有控制字符，无法写入工程文件。</translation>
    </message>
    <message>
        <source>Add Files</source>
        <translation>添加文件</translation>
    </message>
    <message>
        <source>Can not add file &quot;%1&quot;</source>
        <translation>无法添加文件“%1”</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name for a file.</source>
        <translation>“%1”不是有效的文件名。</translation>
    </message>
    <message>
        <source>The project has a file of that name.</source>
        <translation>工程中已有同名文件。</translation>
    </message>
    <message>
        <source>Rename File</source>
        <translation>重命名文件</translation>
    </message>
    <message>
        <source>Can not rename file &quot;%1&quot;</source>
        <translation>无法重命名文件“%1”</translation>
    </message>
    <message>
        <source>It has unsaved changes; save or discard them first.</source>
        <translation>它有未保存的更改，请先保存或丢弃。</translation>
    </message>
    <message>
        <source>There is a file of that name.</source>
        <translation>已有同名文件。</translation>
    </message>
    <message>
        <source>Can not save project &quot;%1&quot;</source>
        <translation>无法保存工程“%1”</translation>
    </message>
    <message>
        <source>Save Project</source>
        <translation>保存工程</translation>
    </message>
</context>
<context>
    <name>Fpga::GoToPanel</name>
    <message>
        <source>Go to Project Panel</source>
        <translation>转到工程面板</translation>
    </message>
</context>
<context>
    <name>Fpga::NewFileDialog</name>
    <message>
        <source>New Verilog File</source>
        <translation>新建 Verilog 文件</translation>
    </message>
    <message>
        <source>New SystemVerilog File</source>
        <translation>新建 SystemVerilog 文件</translation>
    </message>
    <message>
        <source>New VHDL File</source>
        <translation>新建 VHDL 文件</translation>
    </message>
    <message>
        <source>New Timing Constraints File</source>
        <translation>新建时序约束文件</translation>
    </message>
    <message>
        <source>New Physical Constraints File</source>
        <translation>新建物理约束文件</translation>
    </message>
    <message>
        <source>Begin with a comment of the file&apos;s name and the date</source>
        <translation>以包含文件名和日期的注释开头</translation>
    </message>
    <message>
        <source>Preview</source>
        <translation>预览</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>&amp;Entity name:</source>
        <translation>实体名(&amp;E)：</translation>
    </message>
    <message>
        <source>&amp;Module name:</source>
        <translation>模块名(&amp;M)：</translation>
    </message>
    <message>
        <source>&amp;File name:</source>
        <translation>文件名(&amp;F)：</translation>
    </message>
    <message>
        <source>Ports:</source>
        <translation>端口：</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>预览：</translation>
    </message>
    <message>
        <source>Please enter a name for the file.</source>
        <translation>请输入文件名。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name for a file.</source>
        <translation>“%1”不是有效的文件名。</translation>
    </message>
    <message>
        <source>There are two ports &quot;%1&quot;.</source>
        <translation>有两个同名端口“%1”。</translation>
    </message>
    <message>
        <source>Select Directory...</source>
        <translation>选择目录...</translation>
    </message>
    <message>
        <source>Can not create file &quot;%1&quot;</source>
        <translation>无法创建文件“%1”</translation>
    </message>
    <message>
        <source>There is a folder of that name.</source>
        <translation>已有同名文件夹。</translation>
    </message>
    <message>
        <source>The file &quot;%1&quot; exists.
Do you want to replace it? What it holds is lost.</source>
        <translation>文件“%1”已存在。
是否替换？其原有内容将丢失。</translation>
    </message>
    <message>
        <source>F&amp;older:</source>
        <translation>文件夹(&amp;O)：</translation>
    </message>
</context>
<context>
    <name>Fpga::NewFileWizard</name>
    <message>
        <source>Verilog File</source>
        <translation>Verilog 文件</translation>
    </message>
    <message>
        <source>SystemVerilog File</source>
        <translation>SystemVerilog 文件</translation>
    </message>
    <message>
        <source>VHDL File</source>
        <translation>VHDL 文件</translation>
    </message>
    <message>
        <source>Timing Constraints File</source>
        <translation>时序约束文件</translation>
    </message>
    <message>
        <source>Physical Constraints File</source>
        <translation>物理约束文件</translation>
    </message>
    <message>
        <source>A Verilog source with a module and its ports.</source>
        <translation>包含一个模块及其端口的 Verilog 源文件。</translation>
    </message>
    <message>
        <source>A SystemVerilog source with a module and its ports.</source>
        <translation>包含一个模块及其端口的 SystemVerilog 源文件。</translation>
    </message>
    <message>
        <source>A VHDL source with an entity, its ports and an empty architecture.</source>
        <translation>包含一个实体、其端口和空结构体的 VHDL 源文件。</translation>
    </message>
    <message>
        <source>Clocks and the times that signals have to keep (SDC).</source>
        <translation>时钟以及信号须满足的时序要求（SDC）。</translation>
    </message>
    <message>
        <source>Which pin of the device each port of the top module is on.</source>
        <translation>顶层模块各端口对应的器件管脚。</translation>
    </message>
</context>
<context>
    <name>Fpga::NewItemPage</name>
    <message>
        <source>New Files and Projects</source>
        <translation>新建文件与工程</translation>
    </message>
    <message>
        <source>FPGA Project</source>
        <translation>FPGA 工程</translation>
    </message>
    <message>
        <source>&amp;Begin new files with a comment of their name and the date</source>
        <translation>在新建文件开头加入文件名和日期注释(&amp;B)</translation>
    </message>
    <message>
        <source>Named in the comment; nobody when empty</source>
        <translation>写入注释；留空则不写作者</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>A&amp;uthor:</source>
        <translation>作者(&amp;U)：</translation>
    </message>
    <message>
        <source>&amp;Device of new projects:</source>
        <translation>新建工程的器件(&amp;D)：</translation>
    </message>
</context>
<context>
    <name>Fpga::NewProject</name>
    <message>
        <source>Please enter a name for new project.</source>
        <translation>请输入新工程的名称。</translation>
    </message>
    <message>
        <source>Please select a path.</source>
        <translation>请选择路径。</translation>
    </message>
    <message>
        <source>The name cannot be that of a file.</source>
        <translation>该名称不能用作文件名。</translation>
    </message>
    <message>
        <source>There is a file of that name.</source>
        <translation>已有同名文件。</translation>
    </message>
</context>
<context>
    <name>Fpga::NewProjectDialog</name>
    <message>
        <source>New FPGA Project</source>
        <translation>新建 FPGA 工程</translation>
    </message>
    <message>
        <source>The project &quot;%1&quot; exists.
Do you want to replace it by an empty one? Its list of files is lost.</source>
        <translation>工程“%1”已存在。
是否用空工程替换？其文件列表将丢失。</translation>
    </message>
    <message>
        <source>Can not create project &quot;%1&quot;</source>
        <translation>无法创建工程“%1”</translation>
    </message>
</context>
<context>
    <name>Fpga::NewProjectWizard</name>
    <message>
        <source>FPGA Project</source>
        <translation>FPGA 工程</translation>
    </message>
    <message>
        <source>An empty project for a device of your choice, with a folder for its sources.</source>
        <translation>面向所选器件的空工程，附带源文件文件夹。</translation>
    </message>
</context>
<context>
    <name>Fpga::PlacePage</name>
    <message>
        <source>Name and Place</source>
        <translation>名称和位置</translation>
    </message>
    <message>
        <source>The project gets a folder of its own, with its name, in the folder chosen here.</source>
        <translation>将在此处选择的文件夹中为工程创建一个同名文件夹。</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>文件夹(&amp;F)：</translation>
    </message>
    <message>
        <source>There is a project of that name.</source>
        <translation>已有同名工程。</translation>
    </message>
    <message>
        <source>The folder exists; the project is put into it.</source>
        <translation>文件夹已存在，工程将放入其中。</translation>
    </message>
    <message>
        <source>Select Directory...</source>
        <translation>选择目录...</translation>
    </message>
    <message>
        <source>Na&amp;me:</source>
        <translation>名称(&amp;M)：</translation>
    </message>
</context>
<context>
    <name>Fpga::PortTable</name>
    <message>
        <source>Ports</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>端口</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>方向</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>位宽</translation>
    </message>
    <message>
        <source>Add Port</source>
        <translation>添加端口</translation>
    </message>
    <message>
        <source>Remove Port</source>
        <translation>移除端口</translation>
    </message>
    <message>
        <source> bit</source>
        <translation> 位</translation>
    </message>
</context>
<context>
    <name>Fpga::ProjectCopy</name>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
</context>
<context>
    <name>Fpga::ProjectEditors</name>
    <message numerus="yes">
        <source>and %n more</source>
        <translation>
            <numerusform>以及另外 %n 个</numerusform>
        </translation>
    </message>
    <message>
        <source>Close Project</source>
        <translation>关闭工程</translation>
    </message>
    <message>
        <source>Files of the project &quot;%1&quot; have unsaved changes.</source>
        <translation>工程“%1”的文件有未保存的更改。</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>全部保存</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>保存文件</translation>
    </message>
    <message>
        <source>Can not save to file &quot;%1&quot;</source>
        <translation>无法保存到文件“%1”</translation>
    </message>
</context>
<context>
    <name>Fpga::ProjectHeader</name>
    <message>
        <source>Device:</source>
        <translation>器件：</translation>
    </message>
    <message>
        <source>Top:</source>
        <translation>顶层：</translation>
    </message>
    <message>
        <source>none chosen</source>
        <translation>未选择</translation>
    </message>
    <message>
        <source>%1: %2 logic cells, %3 bits of block RAM, %4 user I/O</source>
        <translation>%1：%2 个逻辑单元，%3 位块 RAM，%4 个用户 I/O</translation>
    </message>
</context>
<context>
    <name>Fpga::ProjectPanel</name>
    <message>
        <source>Project</source>
        <translation>工程</translation>
    </message>
    <message>
        <source>Files of the project</source>
        <translation>工程文件</translation>
    </message>
    <message>
        <source>No project is open.

Make one with File › New, or open one with File › Open.</source>
        <translation>没有打开的工程。

可通过“文件&#xa0;›&#xa0;新建”创建工程，或通过“文件&#xa0;›&#xa0;打开”打开工程。</translation>
    </message>
</context>
<context>
    <name>Fpga::ProjectReader</name>
    <message>
        <source>The file is no readable XML: %1</source>
        <translation>文件不是可读的 XML：%1</translation>
    </message>
    <message>
        <source>The file has no element &quot;Template&quot;, so it is no project.</source>
        <translation>文件中没有“Template”元素，因此不是工程文件。</translation>
    </message>
    <message>
        <source>Its template &quot;%1&quot; is not that of an FPGA project.</source>
        <translation>其模板“%1”不是 FPGA 工程的模板。</translation>
    </message>
    <message>
        <source>&quot;enabled&quot; is neither &quot;true&quot; nor &quot;false&quot;.</source>
        <translation>“enabled”的值既不是“true”也不是“false”。</translation>
    </message>
    <message>
        <source>A file without a path.</source>
        <translation>有文件缺少路径。</translation>
    </message>
    <message>
        <source>Elements are nested more than %1 deep.</source>
        <translation>元素嵌套超过 %1 层。</translation>
    </message>
    <message>
        <source>Text where none belongs: &quot;%1&quot;.</source>
        <translation>此处不应有文本：“%1”。</translation>
    </message>
    <message>
        <source>A document type (DOCTYPE) does not belong into a project file.</source>
        <translation>工程文件中不允许有文档类型声明（DOCTYPE）。</translation>
    </message>
    <message>
        <source>The entity &quot;%1&quot; is not known.</source>
        <translation>未知实体“%1”。</translation>
    </message>
    <message>
        <source>There are more than %1 elements.</source>
        <translation>元素数量超过 %1 个。</translation>
    </message>
    <message>
        <source>The element &quot;%1&quot; stands here a second time.</source>
        <translation>元素“%1”在此处重复出现。</translation>
    </message>
</context>
<context>
    <name>Fpga::ReadError</name>
    <message>
        <source>%1, line %2: %3</source>
        <translation>%1，第 %2 行：%3</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>This is not a file.</source>
        <translation>这不是文件。</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB, which no project file is.</source>
        <translation>文件大于 %1 MB，不可能是工程文件。</translation>
    </message>
    <message>
        <source>An element has more than %1 attributes.</source>
        <translation>有元素的属性超过 %1 个。</translation>
    </message>
</context>
<context>
    <name>Fpga::SaveProjectAs</name>
    <message>
        <source>Save Project As...</source>
        <translation>工程另存为...</translation>
    </message>
    <message>
        <source>Save Project As</source>
        <translation>工程另存为</translation>
    </message>
    <message>
        <source>Can not save project &quot;%1&quot;</source>
        <translation>无法保存工程“%1”</translation>
    </message>
</context>
<context>
    <name>Fpga::SourceTemplate</name>
    <message>
        <source>A name is missing.</source>
        <translation>缺少名称。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name in VHDL: letters, digits and single underscores, a letter first.</source>
        <translation>“%1”不是合法的 VHDL 名称：只能包含字母、数字和不连续的下划线，且以字母开头。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a word of the language.</source>
        <translation>“%1”是该语言的关键字。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no name in Verilog: letters, digits and underscores, no digit first.</source>
        <translation>“%1”不是合法的 Verilog 名称：只能包含字母、数字和下划线，且不能以数字开头。</translation>
    </message>
</context>
<context>
    <name>Fpga::SummaryPage</name>
    <message>
        <source>Summary</source>
        <translation>摘要</translation>
    </message>
    <message>
        <source>This project is going to be made.</source>
        <translation>即将创建以下工程。</translation>
    </message>
    <message>
        <source>Name:</source>
        <translation>名称：</translation>
    </message>
    <message>
        <source>Project file:</source>
        <translation>工程文件：</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>器件：</translation>
    </message>
    <message>
        <source>none chosen</source>
        <translation>未选择</translation>
    </message>
</context>
</TS>
