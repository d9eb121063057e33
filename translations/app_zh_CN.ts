<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Host</name>
    <message>
        <source>Starting %1…</source>
        <translation>正在启动 %1…</translation>
    </message>
</context>
</TS>
