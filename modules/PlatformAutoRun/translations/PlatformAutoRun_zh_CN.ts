<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AutoRunAddWidget</name>
    <message>
        <source>Add Url</source>
        <translation>添加网址</translation>
    </message>
</context>
<context>
    <name>AutoRunBaseItem</name>
    <message>
        <source>AutoRunBaseItem</source>
        <translation>AutoRunBaseItem</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Priority open</source>
        <translation>优先打开</translation>
    </message>
    <message>
        <source>Open first</source>
        <translation>设为优先</translation>
    </message>
</context>
<context>
    <name>AutoRunComboItem</name>
    <message>
        <source>AutoRunComboItem</source>
        <translation>AutoRunComboItem</translation>
    </message>
</context>
<context>
    <name>AutoRunEditWidget</name>
    <message>
        <source>AutoRunEditWidget</source>
        <translation>AutoRunEditWidget</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>URL cannot be empty</source>
        <translation>网址不能为空</translation>
    </message>
    <message>
        <source>Please enter the VX URL</source>
        <translation>请输入 VX 网址</translation>
    </message>
    <message>
        <source>Edit Url</source>
        <translation>编辑网址</translation>
    </message>
    <message>
        <source>Please enter VX Url</source>
        <translation>请输入 VX 网址</translation>
    </message>
</context>
<context>
    <name>AutoRunOperateWidget</name>
    <message>
        <source>AutoRunOperateWidget</source>
        <translation>AutoRunOperateWidget</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
</context>
<context>
    <name>AutoRunPluginAddWidget</name>
    <message>
        <source>Add App</source>
        <translation>添加应用</translation>
    </message>
</context>
<context>
    <name>AutoRunPluginEditWidget</name>
    <message>
        <source>AutoRunPluginEditWidget</source>
        <translation>AutoRunPluginEditWidget</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Please select app</source>
        <translation>请选择应用</translation>
    </message>
    <message>
        <source>Edit App</source>
        <translation>编辑应用</translation>
    </message>
</context>
<context>
    <name>AutoRunSettingWidget</name>
    <message>
        <source>AutoRunSettingWidget</source>
        <translation>AutoRunSettingWidget</translation>
    </message>
    <message>
        <source>Set the URL that opens when you start it</source>
        <translation>设置启动时打开的网址</translation>
    </message>
    <message>
        <source>+custom URL</source>
        <translation>+ 自定义网址</translation>
    </message>
    <message>
        <source>Set the App that opens when you start it</source>
        <translation>设置启动时打开的应用</translation>
    </message>
    <message>
        <source>+Add App</source>
        <translation>+ 添加应用</translation>
    </message>
    <message>
        <source>（0/5）</source>
        <translation>（0/5）</translation>
    </message>
    <message>
        <source>Custom URL cannot exceed %1</source>
        <translation>自定义网址不能超过 %1 个</translation>
    </message>
    <message>
        <source>Add Url</source>
        <translation>添加网址</translation>
    </message>
    <message>
        <source>Add App cannot exceed %1</source>
        <translation>添加的应用不能超过 %1 个</translation>
    </message>
    <message>
        <source>Add App</source>
        <translation>添加应用</translation>
    </message>
    <message>
        <source>Homepage</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Edit Url</source>
        <translation>编辑网址</translation>
    </message>
    <message>
        <source>Edit App</source>
        <translation>编辑应用</translation>
    </message>
</context>
<context>
    <name>PlatformAutoRunSettingFactory</name>
    <message>
        <source>Homepage</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Set the URL that opens when you start it</source>
        <translation>设置启动时打开的网址</translation>
    </message>
    <message>
        <source>+custom URL</source>
        <translation>+ 自定义网址</translation>
    </message>
    <message>
        <source>Set the App that opens when you start it</source>
        <translation>设置启动时打开的应用</translation>
    </message>
    <message>
        <source>+Add App</source>
        <translation>+ 添加应用</translation>
    </message>
</context>
<context>
    <name>TLRecoverManager</name>
    <message>
        <source>recover the tabs?</source>
        <translation>是否恢复上次的标签页？</translation>
    </message>
</context>
</TS>
