<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Core::EditorManager</name>
    <message>
        <source>Open File</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Can not open file &quot;%1&quot;</source>
        <translation>无法打开文件“%1”</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>保存文件</translation>
    </message>
    <message>
        <source>Can not save to file &quot;%1&quot;</source>
        <translation>无法保存到文件“%1”</translation>
    </message>
    <message>
        <source>Recent Files</source>
        <translation>最近的文件</translation>
    </message>
    <message>
        <source>&amp;Save &quot;%1&quot;</source>
        <translation>保存“%1”(&amp;S)</translation>
    </message>
    <message>
        <source>Save &quot;%1&quot;</source>
        <translation>保存“%1”</translation>
    </message>
    <message>
        <source>Save &quot;%1&quot; &amp;As...</source>
        <translation>将“%1”另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save &quot;%1&quot; As</source>
        <translation>将“%1”另存为</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>Core::ExternalEditorDialog</name>
    <message>
        <source>Display Name:</source>
        <translation>显示名称：</translation>
    </message>
    <message>
        <source>Program Path:</source>
        <translation>程序路径：</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>参数：</translation>
    </message>
    <message>
        <source>&quot;%f&quot; for file path.
&quot;%l&quot; for line.</source>
        <translation>“%f”表示文件路径。
“%l”表示行号。</translation>
    </message>
    <message>
        <source>Select Executable File</source>
        <translation>选择可执行文件</translation>
    </message>
    <message>
        <source>There already has an editor named &quot;%1&quot;, please choose another name.</source>
        <translation>已有名为“%1”的编辑器，请选择其他名称。</translation>
    </message>
</context>
<context>
    <name>Core::ExternalEditorModel</name>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Program</source>
        <translation>程序</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>参数</translation>
    </message>
</context>
<context>
    <name>Core::ExternalEditorOptionPage</name>
    <message>
        <source>Always Use External Editor</source>
        <translation>始终使用外部编辑器</translation>
    </message>
    <message>
        <source>External editors</source>
        <translation>外部编辑器</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>添加</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>移除</translation>
    </message>
    <message>
        <source>Make Default</source>
        <translation>设为默认</translation>
    </message>
    <message>
        <source>External Editor</source>
        <translation>外部编辑器</translation>
    </message>
</context>
<context>
    <name>Core::ExternalEditorTable</name>
    <message>
        <source>Create an external editor</source>
        <translation>添加外部编辑器</translation>
    </message>
    <message>
        <source>Modifying editor</source>
        <translation>修改外部编辑器</translation>
    </message>
</context>
<context>
    <name>Core::IdeMainWindow</name>
    <message>
        <source>Open File</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>新建(&amp;N)...</translation>
    </message>
    <message>
        <source>New File or Project</source>
        <translation>新建文件或工程</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open File or Project</source>
        <translation>打开文件或工程</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>全部保存</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>打印(&amp;P)...</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>打印</translation>
    </message>
    <message>
        <source>&amp;Exit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select &amp;All</source>
        <translation>全选(&amp;A)</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>&amp;Find &amp;&amp; Replace</source>
        <translation>查找和替换(&amp;F)</translation>
    </message>
    <message>
        <source>Find &amp; Replace</source>
        <translation>查找和替换</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>选项(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>全屏(&amp;F)</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>全屏</translation>
    </message>
    <message>
        <source>Tile</source>
        <translation>平铺</translation>
    </message>
    <message>
        <source>Cascade</source>
        <translation>层叠</translation>
    </message>
    <message>
        <source>View Help</source>
        <translation>查看帮助</translation>
    </message>
    <message>
        <source>Contact Us</source>
        <translation>联系我们</translation>
    </message>
    <message>
        <source>About...</source>
        <translation>关于...</translation>
    </message>
    <message>
        <source>File ToolBar</source>
        <translation>文件工具栏</translation>
    </message>
    <message>
        <source>Edit ToolBar</source>
        <translation>编辑工具栏</translation>
    </message>
    <message>
        <source>Common Tools</source>
        <translation>常用工具</translation>
    </message>
    <message>
        <source>Process Tools</source>
        <translation>流程工具</translation>
    </message>
</context>
<context>
    <name>Core::OptionDialog</name>
    <message>
        <source>This page has nothing to show.</source>
        <translation>此页面没有可显示的内容。</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Categories</source>
        <translation>类别</translation>
    </message>
    <message>
        <source>[*]items request restart program</source>
        <translation>标有 [*] 的选项需重启程序后生效</translation>
    </message>
    <message>
        <source>What is changed here lasts until the program ends, and no longer: the settings cannot be written to %1.</source>
        <translation>此处的更改仅在本次运行中有效：无法将设置写入 %1。</translation>
    </message>
</context>
<context>
    <name>Core::ProjectManager</name>
    <message>
        <source>Can not open project &quot;%1&quot;</source>
        <translation>无法打开工程“%1”</translation>
    </message>
    <message>
        <source>Open Project</source>
        <translation>打开工程</translation>
    </message>
    <message>
        <source>Invalid project file.</source>
        <translation>工程文件无效。</translation>
    </message>
    <message>
        <source>Unsupported project type.</source>
        <translation>不支持的工程类型。</translation>
    </message>
    <message>
        <source>Directory &quot;%1&quot; has invalid character, space and &quot;-&quot; cannot be used together.</source>
        <translation>目录“%1”含有无效字符：空格与“-”不能连用。</translation>
    </message>
    <message>
        <source>Recent Projects</source>
        <translation>最近的工程</translation>
    </message>
    <message>
        <source>Close Project</source>
        <translation>关闭工程</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>Core::ProjectSaveAsDlg</name>
    <message>
        <source>Save to: </source>
        <translation>保存到：</translation>
    </message>
    <message>
        <source>Browse...</source>
        <translation>浏览...</translation>
    </message>
    <message>
        <source>Project Name: </source>
        <translation>工程名称：</translation>
    </message>
    <message>
        <source>Save current project as...</source>
        <translation>将当前工程另存为...</translation>
    </message>
    <message>
        <source>Select Directory...</source>
        <translation>选择目录...</translation>
    </message>
</context>
<context>
    <name>Core::TheNewDialog</name>
    <message>
        <source>New</source>
        <translation>新建</translation>
    </message>
    <message>
        <source>Wizards</source>
        <translation>向导</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>说明</translation>
    </message>
    <message>
        <source>Projects</source>
        <translation>工程</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
</context>
<context>
    <name>Core::ViewManager</name>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>全部关闭</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>重置布局</translation>
    </message>
    <message>
        <source>Panels</source>
        <translation>面板</translation>
    </message>
    <message>
        <source>&amp;Close &quot;%1&quot;</source>
        <translation>关闭“%1”(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Core::private_impl::GeneralOptionPage</name>
    <message>
        <source>User Interface</source>
        <translation>用户界面</translation>
    </message>
    <message>
        <source>Language[*]:</source>
        <translation>语言[*]：</translation>
    </message>
    <message>
        <source>Toolbar Icon Size:</source>
        <translation>工具栏图标大小：</translation>
    </message>
    <message>
        <source>Theme:</source>
        <translation>主题：</translation>
    </message>
    <message>
        <source>Default New Project Directory</source>
        <translation>新建工程的默认目录</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>环境</translation>
    </message>
    <message>
        <source>Simplified Chinese</source>
        <translation>简体中文</translation>
    </message>
    <message>
        <source>Restart Required</source>
        <translation>需要重启</translation>
    </message>
    <message>
        <source>Theme changes will take full effect after restarting the application.</source>
        <translation>重启程序后，主题更改才会完全生效。</translation>
    </message>
    <message>
        <source>Select Directory</source>
        <translation>选择目录</translation>
    </message>
</context>
<context>
    <name>Core::private_impl::PaneFocus</name>
    <message>
        <source>Next Pane</source>
        <translation>下一个窗格</translation>
    </message>
    <message>
        <source>Previous Pane</source>
        <translation>上一个窗格</translation>
    </message>
</context>
<context>
    <name>Core::private_impl::VersionDialog</name>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>&lt;p&gt;&lt;div style=&quot;font-size:12pt;line-height:130%&quot;&gt;%1&lt;/div&gt;&lt;br/&gt;Version %2 %3 build(%4)&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;div style=&quot;font-size:12pt;line-height:130%&quot;&gt;%1&lt;/div&gt;&lt;br/&gt;版本 %2 %3 构建号 %4&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p align=&quot;center&quot;&gt;Copyright &amp;copy; 2026 KelmoWare&lt;br/&gt;All rights reserved.&lt;/p&gt;</source>
        <translation>&lt;p align=&quot;center&quot;&gt;版权所有 &amp;copy; 2026 KelmoWare&lt;br/&gt;保留所有权利。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>Having fun?		</source>
        <translation>好玩吗？		</translation>
    </message>
    <message>
        <source>Yep</source>
        <translation>好玩</translation>
    </message>
    <message>
        <source>You should stop this.		</source>
        <translation>该停下来了。		</translation>
    </message>
    <message>
        <source>OK~</source>
        <translation>好吧~</translation>
    </message>
    <message>
        <source>No</source>
        <translation>不</translation>
    </message>
    <message>
        <source>Shut Up!</source>
        <translation>闭嘴！</translation>
    </message>
</context>
<context>
    <name>MimeType</name>
    <message>
        <source>Plain Text File</source>
        <translation>纯文本文件</translation>
    </message>
    <message>
        <source>HTML Document File</source>
        <translation>HTML 文档文件</translation>
    </message>
    <message>
        <source>KELMO FPGA Designer Project File</source>
        <translation>KELMO FPGA Designer 工程文件</translation>
    </message>
    <message>
        <source>Verilog HDL File</source>
        <translation>Verilog HDL 文件</translation>
    </message>
    <message>
        <source>VHDL File</source>
        <translation>VHDL 文件</translation>
    </message>
    <message>
        <source>KELMO Synthesis Constraints File</source>
        <translation>KELMO 综合约束文件</translation>
    </message>
    <message>
        <source>KELMO Physical Constraints File</source>
        <translation>KELMO 物理约束文件</translation>
    </message>
    <message>
        <source>KELMO Timing Constraints File</source>
        <translation>KELMO 时序约束文件</translation>
    </message>
    <message>
        <source>KELMO Oscilloscope Config File</source>
        <translation>KELMO 示波器配置文件</translation>
    </message>
    <message>
        <source>FPGA Design Constraints File</source>
        <translation>FPGA 设计约束文件</translation>
    </message>
    <message>
        <source>Analysis Design Constraints File</source>
        <translation>分析用设计约束文件</translation>
    </message>
    <message>
        <source>KELMO Power Analyzer Conifg File</source>
        <translation>KELMO 功耗分析配置文件</translation>
    </message>
    <message>
        <source>KELMO Firm Core File</source>
        <translation>KELMO 固核文件</translation>
    </message>
    <message>
        <source>Memory Initialization File</source>
        <translation>存储器初始化文件</translation>
    </message>
    <message>
        <source>User Flash Initialization File</source>
        <translation>用户闪存初始化文件</translation>
    </message>
    <message>
        <source>KELMO Synthesize Constraints File</source>
        <translation>KELMO 综合约束文件</translation>
    </message>
    <message>
        <source>KELMO Virtual Input/Output Config File</source>
        <translation>KELMO 虚拟输入/输出配置文件</translation>
    </message>
</context>
</TS>
