<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>KeyBindings::CommandModel</name>
    <message>
        <source>Not the default</source>
        <translation>非默认值</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>标识</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2)</source>
        <translation>“%1”（%2）</translation>
    </message>
    <message>
        <source>Shares a key with %1</source>
        <translation>与%1共用快捷键</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the names of commands</comment>
        <translation>、</translation>
    </message>
</context>
<context>
    <name>KeyBindings::FixedKeys</name>
    <message>
        <source>the menu &quot;%1&quot;</source>
        <translation>菜单“%1”</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>“%1”</translation>
    </message>
    <message>
        <source>a part of the main window</source>
        <translation>主窗口的一部分</translation>
    </message>
</context>
<context>
    <name>KeyBindings::KeyBindingsPage</name>
    <message>
        <source>Keyboard</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>Environment</source>
        <translation>环境</translation>
    </message>
</context>
<context>
    <name>KeyBindings::KeyBindingsWidget</name>
    <message>
        <source>Filter by command, menu, id or key</source>
        <translation>按命令、菜单、标识或快捷键筛选</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>%1 commands</source>
        <translation>%1 个命令</translation>
    </message>
    <message>
        <source>%1 of %2 commands</source>
        <translation>%1 / %2 个命令</translation>
    </message>
    <message>
        <source>No such command</source>
        <translation>没有匹配的命令</translation>
    </message>
</context>
<context>
    <name>KeyBindings::KeyRecorder</name>
    <message>
        <source>Press the keys</source>
        <translation>按下快捷键</translation>
    </message>
</context>
<context>
    <name>KeyBindings::KeyRules</name>
    <message>
        <source>It moves the focus or changes the document.</source>
        <translation>它用于移动焦点或切换文档。</translation>
    </message>
    <message>
        <source>It belongs to the window manager.</source>
        <translation>它由窗口管理器使用。</translation>
    </message>
    <message>
        <source>Texts and lists need it.</source>
        <translation>文本和列表需要使用它。</translation>
    </message>
    <message>
        <source>It types a character.</source>
        <translation>它用于输入字符。</translation>
    </message>
</context>
<context>
    <name>KeyBindings::KeysEditor</name>
    <message>
        <source>Re&amp;move</source>
        <translation>移除(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>重置(&amp;R)</translation>
    </message>
    <message>
        <source>A&amp;dd</source>
        <translation>添加(&amp;D)</translation>
    </message>
    <message>
        <source>Reset A&amp;ll</source>
        <translation>全部重置(&amp;L)</translation>
    </message>
    <message>
        <source>Gives the command the keys it had at first</source>
        <translation>恢复此命令最初的快捷键</translation>
    </message>
    <message>
        <source>Gives all commands the keys they had at first</source>
        <translation>恢复所有命令最初的快捷键</translation>
    </message>
    <message>
        <source>&amp;Keys:</source>
        <translation>快捷键(&amp;K)：</translation>
    </message>
    <message>
        <source>&amp;New key:</source>
        <translation>新快捷键(&amp;N)：</translation>
    </message>
    <message>
        <source>Keys of the command</source>
        <translation>命令的快捷键</translation>
    </message>
    <message>
        <source>New key</source>
        <translation>新快捷键</translation>
    </message>
    <message>
        <source>Press the keys; Tab leaves the field</source>
        <translation>按下快捷键；按 Tab 键离开此框</translation>
    </message>
    <message>
        <source>Choose a command in the list.</source>
        <translation>在列表中选择一个命令。</translation>
    </message>
    <message>
        <source>%1 clashes with %2.</source>
        <translation>%1 与%2冲突。</translation>
    </message>
    <message>
        <source>%1 is free.</source>
        <translation>%1 未被占用。</translation>
    </message>
    <message>
        <source>%1 cannot be a key of a command. %2</source>
        <translation>%1 不能用作命令的快捷键。%2</translation>
    </message>
    <message>
        <source>Press a new key in the field. Several in a row make one key of several strokes.</source>
        <translation>在框中按下新的快捷键。连续按下多次可组成一个多步快捷键。</translation>
    </message>
    <message>
        <source>Keys of &quot;%1&quot;</source>
        <translation>“%1”的快捷键</translation>
    </message>
    <message>
        <source>Keys of a command</source>
        <translation>命令的快捷键</translation>
    </message>
    <message>
        <source>%1 is a key of this command already.</source>
        <translation>%1 已是此命令的快捷键。</translation>
    </message>
    <message>
        <source>%1 clashes with %2, another key of this command.</source>
        <translation>%1 与此命令的另一快捷键 %2 冲突。</translation>
    </message>
    <message>
        <source>%1 clashes with a key of %2, which cannot be changed.</source>
        <translation>%1 与%2的快捷键冲突，而后者无法更改。</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>另外 %1 个</translation>
    </message>
    <message>
        <source>&quot;%1&quot; (%2)</source>
        <comment>a command and its menu</comment>
        <translation>“%1”（%2）</translation>
    </message>
    <message>
        <source>, </source>
        <comment>between the names of commands</comment>
        <translation>、</translation>
    </message>
    <message>
        <source>Keyboard</source>
        <translation>快捷键</translation>
    </message>
    <message>
        <source>A shared key works where only one of the commands is available; where both are, neither gets it.</source>
        <translation>共用的快捷键仅在其中一个命令可用时有效；两个命令都可用时均不会触发。</translation>
    </message>
    <message>
        <source>&amp;Reassign</source>
        <translation>重新分配(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Share</source>
        <translation>共用(&amp;S)</translation>
    </message>
    <message>
        <source>In a document, %1 would no longer do &quot;%2&quot;.</source>
        <translation>在文档中，%1 将不再执行“%2”。</translation>
    </message>
</context>
<context>
    <name>KeyBindings::Places</name>
    <message>
        <source>Tool bar: %1</source>
        <translation>工具栏：%1</translation>
    </message>
    <message>
        <source>Not in a menu</source>
        <translation>不在菜单中</translation>
    </message>
</context>
</TS>
