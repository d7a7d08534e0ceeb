<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>HttpCall</name>
    <message>
        <source>No gateway address is configured.</source>
        <translation>未配置网关地址。</translation>
    </message>
    <message>
        <source>The gateway&apos;s address is not a web address.</source>
        <translation>网关地址不是有效的网址。</translation>
    </message>
    <message>
        <source>The host that replaces the gateway&apos;s host is not a valid address.</source>
        <translation>用来代替网关主机的连接地址无效。</translation>
    </message>
    <message>
        <source>The gateway&apos;s reply is larger than 4 MiB.</source>
        <translation>网关的应答超过 4 MiB。</translation>
    </message>
    <message>
        <source>The gateway did not answer within %1 seconds.</source>
        <translation>网关在 %1 秒内没有应答。</translation>
    </message>
</context>
<context>
    <name>HttpOutcome</name>
    <message>
        <source>The gateway redirects to another address (HTTP status %1). The client does not follow redirects.</source>
        <translation>网关地址转向了别处（HTTP 状态 %1），未予跟随。</translation>
    </message>
    <message>
        <source>The gateway failed with HTTP status %1.</source>
        <translation>网关出错，HTTP 状态 %1。</translation>
    </message>
    <message>
        <source>The gateway refused the call with HTTP status %1.</source>
        <translation>网关拒绝了请求，HTTP 状态 %1。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached: connection refused.</source>
        <translation>无法连接网关：连接被拒绝。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached: its host name is unknown.</source>
        <translation>无法连接网关：找不到主机名。</translation>
    </message>
    <message>
        <source>The gateway closed the connection without a complete reply.</source>
        <translation>网关没有完整应答就关闭了连接。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached: the connection timed out.</source>
        <translation>无法连接网关：连接超时。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached: no secure connection (%1).</source>
        <translation>无法连接网关：未能建立安全连接（%1）。</translation>
    </message>
    <message>
        <source>The gateway&apos;s reply is not HTTP.</source>
        <translation>网关的应答不是 HTTP。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached: the proxy failed (%1).</source>
        <translation>无法连接网关：代理服务器出错（%1）。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached: %1.</source>
        <translation>无法连接网关：%1。</translation>
    </message>
</context>
<context>
    <name>IHttpManager</name>
    <message>
        <source>The client is not connected to a gateway.</source>
        <translation>客户端没有连接网关。</translation>
    </message>
</context>
<context>
    <name>IHttpResponseBase</name>
    <message>
        <source>The gateway&apos;s reply is empty.</source>
        <translation>网关的应答为空。</translation>
    </message>
    <message>
        <source>The gateway&apos;s reply is not JSON.</source>
        <translation>网关的应答不是 JSON。</translation>
    </message>
</context>
<context>
    <name>IHttpResponseDsm</name>
    <message>
        <source>The gateway&apos;s reply does not have the expected form.</source>
        <translation>网关的应答不符合约定的格式。</translation>
    </message>
    <message>
        <source>The gateway answered with code %1.</source>
        <translation>网关返回了代码 %1。</translation>
    </message>
    <message>
        <source>The data in the gateway&apos;s reply could not be read.</source>
        <translation>无法读取网关应答中的数据。</translation>
    </message>
</context>
<context>
    <name>PackagedMsgBox</name>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>是</translation>
    </message>
    <message>
        <source>Yes to all</source>
        <translation>全部选是</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Save all</source>
        <translation>全部保存</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Ignore</source>
        <translation>忽略</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>重置</translation>
    </message>
    <message>
        <source>Restore defaults</source>
        <translation>恢复默认值</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>放弃</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>No</source>
        <translation>否</translation>
    </message>
    <message>
        <source>No to all</source>
        <translation>全部选否</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>RequestStatusBaseWidget</name>
    <message>
        <source>Loading…</source>
        <translation>正在加载…</translation>
    </message>
    <message>
        <source>This could not be loaded.</source>
        <translation>加载失败。</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>SettingExaminer</name>
    <message>
        <source>it was created by another program</source>
        <translation>由其他程序创建</translation>
    </message>
</context>
<context>
    <name>SettingFile</name>
    <message>
        <source>The folder %1 could not be created: settings cannot be saved.</source>
        <translation>无法创建文件夹 %1：设置不能保存。</translation>
    </message>
    <message>
        <source>Another running program has these settings open: they were not read and cannot be saved.</source>
        <translation>另一个正在运行的程序打开了这些设置：设置未读取，也不能保存。</translation>
    </message>
    <message>
        <source>Another program has locked the settings file: settings cannot be saved.</source>
        <translation>另一个程序锁住了设置文件：设置不能保存。</translation>
    </message>
    <message>
        <source>The disk is full: settings cannot be saved.</source>
        <translation>磁盘已满：设置不能保存。</translation>
    </message>
    <message>
        <source>The settings file cannot be written: settings cannot be saved.</source>
        <translation>设置文件无法写入：设置不能保存。</translation>
    </message>
    <message>
        <source>Settings cannot be saved: %1.</source>
        <translation>设置不能保存：%1。</translation>
    </message>
    <message>
        <source>Nothing could be read from it.</source>
        <translation>其中的内容全都无法读取。</translation>
    </message>
    <message>
        <source>Settings that could be read and were kept: %1.</source>
        <translation>其中有 %1 项设置可以读取，已保留。</translation>
    </message>
    <message>
        <source>it is too short</source>
        <translation>文件太短</translation>
    </message>
    <message>
        <source>only its log exists</source>
        <translation>只剩下日志</translation>
    </message>
    <message>
        <source>its header is not a database header</source>
        <translation>文件头不是数据库的文件头</translation>
    </message>
    <message>
        <source>the damaged file %1 cannot be renamed</source>
        <translation>损坏的文件 %1 无法改名</translation>
    </message>
    <message>
        <source>A later version of this program created the settings file.</source>
        <translation>设置文件由本程序的更高版本创建。</translation>
    </message>
    <message>
        <source>The settings file is damaged (%1).</source>
        <translation>设置文件已损坏（%1）。</translation>
    </message>
</context>
<context>
    <name>SettingWriter</name>
    <message>
        <source>The disk is not responding. Settings will be saved as soon as it does.</source>
        <translation>磁盘没有响应：设置尚未保存。恢复响应后会立即保存。</translation>
    </message>
</context>
<context>
    <name>TLLineEdit</name>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
</context>
<context>
    <name>TitleBar</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
</TS>
