<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>TestPlugin</name>
    <message>
        <source>A text of a plugin</source>
        <translation>插件的文本</translation>
    </message>
</context>
</TS>
