<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>TextEditor::EditorActions</name>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Find &amp;&amp; Replace</source>
        <translation>查找和替换</translation>
    </message>
    <message>
        <source>Print...</source>
        <translation>打印...</translation>
    </message>
</context>
<context>
    <name>TextEditor::EditorFactory</name>
    <message>
        <source>Text Editor</source>
        <translation>文本编辑器</translation>
    </message>
    <message>
        <source>The text editor could not be started: %1</source>
        <translation>无法启动文本编辑器：%1</translation>
    </message>
    <message>
        <source>%1 cannot be loaded: %2</source>
        <translation>无法加载 %1：%2</translation>
    </message>
    <message>
        <source>It does not fit this program.</source>
        <translation>它与本程序不兼容。</translation>
    </message>
</context>
<context>
    <name>TextEditor::EngineEditor</name>
    <message>
        <source>Close Document</source>
        <translation>关闭文档</translation>
    </message>
    <message>
        <source>The document &quot;%1&quot; has unsaved changes.</source>
        <translation>文档“%1”有未保存的更改。</translation>
    </message>
    <message>
        <source>Do you want to save them to %1?</source>
        <translation>是否保存到 %1？</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be saved and stays open.</source>
        <translation>无法保存“%1”，文档保持打开。</translation>
    </message>
    <message>
        <source>mixed line ends</source>
        <translation>混合换行符</translation>
    </message>
    <message>
        <source>Line %1, Column %2   |   %3   |   %4</source>
        <translation>行 %1，列 %2   |   %3   |   %4</translation>
    </message>
    <message>
        <source>binary</source>
        <translation>二进制</translation>
    </message>
    <message>
        <source>read only</source>
        <translation>只读</translation>
    </message>
    <message>
        <source>This file is not text. It is shown for reading only.</source>
        <translation>此文件不是文本文件，以只读方式显示。</translation>
    </message>
    <message>
        <source>This file holds characters that cannot be shown as they are. It is shown for reading only, because saving would change it.</source>
        <translation>此文件含有无法原样显示的字符。由于保存会改变其内容，文件以只读方式显示。</translation>
    </message>
    <message>
        <source>This file is write protected. Changes can only be saved under another name.</source>
        <translation>此文件受写保护，更改只能以其他名称保存。</translation>
    </message>
    <message>
        <source>The file could not be loaded again: %1</source>
        <translation>无法重新加载文件：%1</translation>
    </message>
    <message>
        <source>Line %1 holds a character that the encoding of the file, %2, does not have.</source>
        <translation>第 %1 行含有文件编码 %2 中不存在的字符。</translation>
    </message>
    <message>
        <source>It is shown for reading only: the text shown is not all of the file.</source>
        <translation>以只读方式显示：显示的文本不是文件的全部内容。</translation>
    </message>
    <message>
        <source>Use UTF-8</source>
        <translation>使用 UTF-8</translation>
    </message>
    <message>
        <source>The text holds characters that the encoding of the file does not have. The file has not been saved.</source>
        <translation>文本含有文件编码中不存在的字符，文件未保存。</translation>
    </message>
    <message>
        <source>Another program has changed the file since it was loaded. Choose above the text what to keep.</source>
        <translation>文件加载后已被其他程序修改。请在文本上方选择要保留的内容。</translation>
    </message>
    <message>
        <source>Another program has deleted this file. The text is still here; saving writes the file again.</source>
        <translation>其他程序已删除此文件。文本仍在此处，保存即可重新写入文件。</translation>
    </message>
    <message>
        <source>Load from Disk</source>
        <translation>从磁盘加载</translation>
    </message>
    <message>
        <source>Keep This Text</source>
        <translation>保留此文本</translation>
    </message>
    <message>
        <source>Another program has changed this file, and this text has unsaved changes.</source>
        <translation>其他程序已修改此文件，且此文本有未保存的更改。</translation>
    </message>
    <message>
        <source>Another program has changed this file.</source>
        <translation>其他程序已修改此文件。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Unsaved text of this file cannot be kept for the case that the program ends unexpectedly: %1</source>
        <translation>无法留存此文件未保存的文本以备程序意外退出后恢复：%1</translation>
    </message>
    <message>
        <source>Recover Text</source>
        <translation>恢复文本</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>丢弃</translation>
    </message>
    <message>
        <source>The program ended before changes to this file were saved. They were kept and can be recovered.</source>
        <translation>程序退出时，此文件的更改尚未保存。这些更改已留存，可以恢复。</translation>
    </message>
    <message>
        <source>The file itself has been changed since then; recovering takes the place of those changes.</source>
        <translation>此后文件本身已被修改；恢复操作将覆盖这些修改。</translation>
    </message>
</context>
<context>
    <name>TextEditor::FileWriter</name>
    <message>
        <source>It is not a regular file.</source>
        <translation>它不是普通文件。</translation>
    </message>
    <message>
        <source>The file cannot be replaced safely, because nothing can be created in its folder: %1</source>
        <translation>无法安全地替换文件，因为无法在其所在文件夹中创建文件：%1</translation>
    </message>
</context>
<context>
    <name>TextEditor::SettingsOptionPage</name>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Editing</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Text Editor</source>
        <translation>文本编辑器</translation>
    </message>
    <message>
        <source>The text editor has no such settings.</source>
        <translation>文本编辑器没有此类设置。</translation>
    </message>
    <message>
        <source>The text editor could not be started: %1</source>
        <translation>无法启动文本编辑器：%1</translation>
    </message>
</context>
<context>
    <name>TextEditor::TextFile</name>
    <message>
        <source>It is a folder.</source>
        <translation>它是文件夹。</translation>
    </message>
    <message>
        <source>It is a named pipe, not a file.</source>
        <translation>它是命名管道，不是文件。</translation>
    </message>
    <message>
        <source>It is a socket, not a file.</source>
        <translation>它是套接字，不是文件。</translation>
    </message>
    <message>
        <source>It is a device, not a file.</source>
        <translation>它是设备，不是文件。</translation>
    </message>
    <message>
        <source>It is too large for the text editor: it has %1, and %2 is the limit.</source>
        <translation>文件过大，文本编辑器无法打开：大小为 %1，上限为 %2。</translation>
    </message>
</context>
<context>
    <name>TextEditor::ViewBars</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
</TS>
