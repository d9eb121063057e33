<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ASSISTANT::AssistantProxy</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>The help cannot be shown: the help viewer, Qt Assistant (&quot;assistant&quot;), is not installed.</source>
        <translation>无法显示帮助：未安装帮助查看器 Qt Assistant（“assistant”）。</translation>
    </message>
    <message>
        <source>The help cannot be shown: the manual &quot;%1&quot; is missing.</source>
        <translation>无法显示帮助：缺少手册“%1”。</translation>
    </message>
    <message>
        <source>The help viewer &quot;%1&quot; could not be started: %2</source>
        <translation>无法启动帮助查看器“%1”：%2</translation>
    </message>
    <message>
        <source>The help viewer &quot;%1&quot; ended with the exit status %2.</source>
        <translation>帮助查看器“%1”已退出，退出状态为 %2。</translation>
    </message>
</context>
<context>
    <name>Utils::DocumentSwitcher</name>
    <message>
        <source>Documents in order of use</source>
        <translation>按使用顺序排列的文档</translation>
    </message>
</context>
<context>
    <name>Utils::DocumentTabBar</name>
    <message>
        <source>Open documents</source>
        <translation>打开的文档</translation>
    </message>
</context>
<context>
    <name>Utils::MdiArea</name>
    <message>
        <source>Documents</source>
        <translation>文档</translation>
    </message>
    <message>
        <source>Close Document</source>
        <translation>关闭文档</translation>
    </message>
</context>
<context>
    <name>Utils::MdiArea::Private</name>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Close &amp;Others</source>
        <translation>关闭其他(&amp;O)</translation>
    </message>
    <message>
        <source>Close &amp;All</source>
        <translation>全部关闭(&amp;A)</translation>
    </message>
    <message>
        <source>Copy &amp;Path</source>
        <translation>复制路径(&amp;P)</translation>
    </message>
    <message>
        <source>Open Containing &amp;Folder</source>
        <translation>打开所在文件夹(&amp;F)</translation>
    </message>
</context>
<context>
    <name>Utils::SystemReason</name>
    <message>
        <source>Device or resource busy</source>
        <translation>设备或资源忙</translation>
    </message>
    <message>
        <source>Directory not empty</source>
        <translation>目录非空</translation>
    </message>
    <message>
        <source>Disk quota exceeded</source>
        <translation>超出磁盘配额</translation>
    </message>
    <message>
        <source>File exists</source>
        <translation>文件已存在</translation>
    </message>
    <message>
        <source>File name too long</source>
        <translation>文件名过长</translation>
    </message>
    <message>
        <source>File too large</source>
        <translation>文件过大</translation>
    </message>
    <message>
        <source>Input/output error</source>
        <translation>输入/输出错误</translation>
    </message>
    <message>
        <source>Is a directory</source>
        <translation>是目录</translation>
    </message>
    <message>
        <source>No space left on device</source>
        <translation>设备上没有剩余空间</translation>
    </message>
    <message>
        <source>No such file or directory</source>
        <translation>没有此文件或目录</translation>
    </message>
    <message>
        <source>Not a directory</source>
        <translation>不是目录</translation>
    </message>
    <message>
        <source>Operation not permitted</source>
        <translation>不允许的操作</translation>
    </message>
    <message>
        <source>Permission denied</source>
        <translation>权限不足</translation>
    </message>
    <message>
        <source>Read-only file system</source>
        <translation>只读文件系统</translation>
    </message>
    <message>
        <source>Text file busy</source>
        <translation>文本文件忙</translation>
    </message>
    <message>
        <source>Too many levels of symbolic links</source>
        <translation>符号链接层数过多</translation>
    </message>
    <message>
        <source>Too many open files</source>
        <translation>打开的文件过多</translation>
    </message>
</context>
</TS>
