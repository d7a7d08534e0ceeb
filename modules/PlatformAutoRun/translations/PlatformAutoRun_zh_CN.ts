<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>TLRecoverManager</name>
    <message>
        <source>recover the tabs?</source>
        <translation>是否恢复上次的标签页？</translation>
    </message>
</context>
</TS>
