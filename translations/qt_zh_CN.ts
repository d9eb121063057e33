<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>QFile</name>
    <message>
        <source>Cannot open for output</source>
        <translation>无法打开以供写入</translation>
    </message>
    <message>
        <source>Error while renaming.</source>
        <translation>重命名时出错。</translation>
    </message>
</context>
<context>
    <name>QFileSystemModel</name>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>&lt;b&gt;The name &quot;%1&quot; can not be used.&lt;/b&gt;&lt;p&gt;Try using another name, with fewer characters or no punctuations marks.</source>
        <translation>&lt;b&gt;不能使用名称“%1”。&lt;/b&gt;&lt;p&gt;请尝试其他名称，减少字符数或去掉标点符号。</translation>
    </message>
</context>
<context>
    <name>QFontDatabase</name>
    <message>
        <source>Normal</source>
        <comment>The Normal or Regular font weight</comment>
        <translation>常规</translation>
    </message>
</context>
<context>
    <name>QLibrary</name>
    <message>
        <source>Cannot resolve symbol &quot;%1&quot; in %2: %3</source>
        <translation>无法解析 %2 中的符号“%1”：%3</translation>
    </message>
    <message>
        <source>Plugin verification data mismatch in &apos;%1&apos;</source>
        <translation>“%1”中的插件验证数据不匹配</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
</context>
<context>
    <name>QMessageBox</name>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
</context>
<context>
    <name>QPrintDialog</name>
    <message>
        <source>Automatic</source>
        <translation>自动</translation>
    </message>
</context>
<context>
    <name>QPrintSettingsOutput</name>
    <message>
        <source>Duplex Printing</source>
        <translation>双面打印</translation>
    </message>
    <message>
        <source>Long side</source>
        <translation>长边</translation>
    </message>
    <message>
        <source>None</source>
        <translation>无</translation>
    </message>
    <message>
        <source>Short side</source>
        <translation>短边</translation>
    </message>
</context>
<context>
    <name>QPrintWidget</name>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
</context>
<context>
    <name>QProcess</name>
    <message>
        <source>Process failed to start (spawned process exited with code 127)</source>
        <translation>进程启动失败（派生的进程以代码 127 退出）</translation>
    </message>
</context>
<context>
    <name>QWidgetTextControl</name>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
</context>
<context>
    <name>QXmlStream</name>
    <message>
        <source>, but got &apos;</source>
        <translation>，但得到的是 &apos;</translation>
    </message>
    <message>
        <source>Entity expands to more characters than the entity expansion limit.</source>
        <translation>实体展开后的字符数超过了限制。</translation>
    </message>
    <message>
        <source>Expected </source>
        <translation>应为 </translation>
    </message>
    <message>
        <source>Recursive entity detected.</source>
        <translation>检测到递归实体。</translation>
    </message>
    <message>
        <source>Self-referencing entity detected.</source>
        <translation>检测到自引用实体。</translation>
    </message>
    <message>
        <source>Unexpected &apos;</source>
        <translation>意外的 &apos;</translation>
    </message>
</context>
</TS>
