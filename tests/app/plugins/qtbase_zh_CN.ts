<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
