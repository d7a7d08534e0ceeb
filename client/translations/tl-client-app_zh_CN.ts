<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>ClientNotices</name>
    <message>
        <source>Stored settings were damaged and start afresh (%1). The originals are kept in the settings file.</source>
        <translation>已存储的设置损坏，将重新开始（%1 项）。原始数据保留在设置文件中。</translation>
    </message>
    <message>
        <source>The list of what opens at the start could not be read.</source>
        <translation>无法读取启动时打开的列表。</translation>
    </message>
    <message>
        <source>The system&apos;s key store did not take the session. You will be asked to log in again next time.</source>
        <translation>系统密钥库未能保存会话。下次需要重新登录。</translation>
    </message>
    <message>
        <source>The client&apos;s settings file could not be used as it was. The old file is kept as %1.</source>
        <translation>客户端的设置文件无法按原样使用。旧文件保留为 %1。</translation>
    </message>
    <message>
        <source>The client&apos;s settings cannot be saved. What you change is lost at the end.</source>
        <translation>无法保存客户端设置。退出后您的更改将丢失。</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>The gateway cannot be reached. You see the last known configuration.</source>
        <translation>无法连接网关。当前显示的是上次的配置。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached.</source>
        <translation>无法连接网关。</translation>
    </message>
</context>
<context>
    <name>LoginDialog</name>
    <message>
        <source>Log in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>Welcome</source>
        <translation>欢迎</translation>
    </message>
    <message>
        <source>Log in to open your workplace.</source>
        <translation>登录以打开您的工作台。</translation>
    </message>
    <message>
        <source>&amp;Account</source>
        <translation>账号(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Password</source>
        <translation>密码(&amp;P)</translation>
    </message>
    <message>
        <source>Caps Lock is on</source>
        <translation>大写锁定已开启</translation>
    </message>
    <message>
        <source>Show</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>&amp;Stay signed in</source>
        <translation>保持登录(&amp;S)</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Hide</source>
        <translation>隐藏</translation>
    </message>
    <message>
        <source>Hide the password</source>
        <translation>隐藏密码</translation>
    </message>
    <message>
        <source>Show the password</source>
        <translation>显示密码</translation>
    </message>
    <message>
        <source>Logging in…</source>
        <translation>正在登录…</translation>
    </message>
</context>
<context>
    <name>LoginFlow</name>
    <message>
        <source>Looking for the system&apos;s key store…</source>
        <translation>正在查找系统密钥库…</translation>
    </message>
</context>
<context>
    <name>LoginTexts</name>
    <message>
        <source>Please enter your account.</source>
        <translation>请输入账号。</translation>
    </message>
    <message>
        <source>Please enter your password.</source>
        <translation>请输入密码。</translation>
    </message>
    <message>
        <source>Account or password is wrong.</source>
        <translation>账号或密码错误。</translation>
    </message>
    <message>
        <source>Too many failed attempts. Please try again at %1.</source>
        <translation>失败次数过多。请在 %1 后重试。</translation>
    </message>
    <message>
        <source>Too many failed attempts. Please try again in some minutes.</source>
        <translation>失败次数过多。请几分钟后重试。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached. Please check the network connection.</source>
        <translation>无法连接网关。请检查网络连接。</translation>
    </message>
    <message>
        <source>The gateway did not answer in time. Please try again.</source>
        <translation>网关未及时响应。请重试。</translation>
    </message>
    <message>
        <source>The clock of this computer is wrong. It should say %1; please set it right.</source>
        <translation>本机时间不正确，应为 %1；请校准时间。</translation>
    </message>
    <message>
        <source>The clock of this computer is wrong. Please set it right.</source>
        <translation>本机时间不正确。请校准时间。</translation>
    </message>
    <message>
        <source>This client is not set up for the gateway. Please ask your administrator.</source>
        <translation>此客户端尚未针对该网关进行配置。请联系管理员。</translation>
    </message>
    <message>
        <source>The gateway is busy at the moment. Please try again soon.</source>
        <translation>网关繁忙。请稍后重试。</translation>
    </message>
    <message>
        <source>The answer could not be understood. Is this the address of the gateway?</source>
        <translation>无法识别返回的内容。这是网关的地址吗？</translation>
    </message>
    <message>
        <source>The gateway refused the log-in.</source>
        <translation>网关拒绝了登录。</translation>
    </message>
    <message>
        <source>The gateway refused the log-in: %1</source>
        <translation>网关拒绝了登录：%1</translation>
    </message>
    <message>
        <source>Your session has expired. Please log in again.</source>
        <translation>会话已过期。请重新登录。</translation>
    </message>
    <message>
        <source>Your session is not valid any longer. Please log in again.</source>
        <translation>会话已失效。请重新登录。</translation>
    </message>
</context>
<context>
    <name>ModuleLoader</name>
    <message>
        <source>The file cannot be loaded: %1</source>
        <translation>无法加载文件：%1</translation>
    </message>
    <message>
        <source>The plug-in&apos;s object does not offer the module interface %1.</source>
        <translation>插件对象未提供模块接口 %1。</translation>
    </message>
    <message>
        <source>The module failed while it was being set up.</source>
        <translation>模块初始化失败。</translation>
    </message>
    <message>
        <source>The file is damaged or no plug-in: %1</source>
        <translation>文件已损坏或不是插件：%1</translation>
    </message>
    <message>
        <source>The module was made for version %1 of the module interface, this client has version %2.</source>
        <translation>模块针对接口版本 %1 构建，本客户端的接口版本为 %2。</translation>
    </message>
    <message>
        <source>The file is a plug-in of another kind: its interface is &quot;%1&quot;, not &quot;%2&quot;.</source>
        <translation>该文件是其他类型的插件：其接口为“%1”，而不是“%2”。</translation>
    </message>
    <message>
        <source>The module names no key.</source>
        <translation>模块未声明标识。</translation>
    </message>
    <message>
        <source>A module with the key &quot;%1&quot; is already there, from %2.</source>
        <translation>标识为“%1”的模块已存在，来自 %2。</translation>
    </message>
</context>
<context>
    <name>SystemKeyStore</name>
    <message>
        <source>This system has no key store in which a session can be kept.</source>
        <translation>此系统没有可保存会话的密钥库。</translation>
    </message>
    <message>
        <source>The key store does not answer.</source>
        <translation>密钥库没有响应。</translation>
    </message>
</context>
<context>
    <name>ClientSettings</name>
    <message>
        <source>&amp;Settings…</source>
        <translation>设置(&amp;S)…</translation>
    </message>
</context>
<context>
    <name>ClientTabs</name>
    <message>
        <source>&amp;Earlier tabs…</source>
        <translation>先前的标签页(&amp;E)…</translation>
    </message>
    <message>
        <source>Earlier tabs…</source>
        <translation>先前的标签页…</translation>
    </message>
    <message>
        <source>What was kept of the tabs of the last run is damaged and could not be read.</source>
        <translation>上次运行保留的标签页记录已损坏，无法读取。</translation>
    </message>
    <message>
        <source>What was kept of the tabs of the last run is damaged in part. What could be read came back (tabs: %1).</source>
        <translation>上次运行保留的标签页记录部分损坏。能读取的已恢复（标签页：%1 个）。</translation>
    </message>
    <message>
        <source>%1 of the %2 tabs of the last run came back. All are kept under “Earlier tabs…”.</source>
        <translation>上次运行的 %2 个标签页中恢复了 %1 个。全部保留在“先前的标签页…”中。</translation>
    </message>
    <message>
        <source>The client ended unexpectedly twice after tabs were reopened. This time every page loads only when you select its tab.</source>
        <translation>重新打开标签页后，客户端两次意外退出。这一次，页面只在您选择其标签页时才加载。</translation>
    </message>
</context>
<context>
    <name>ClientWindow</name>
    <message>
        <source>&amp;Restart client</source>
        <translation>重新启动客户端(&amp;R)</translation>
    </message>
</context>
<context>
    <name>ClientApplication</name>
    <message>
        <source>The client could not be started again. Start it by hand.</source>
        <translation>无法重新启动客户端。请手动启动。</translation>
    </message>
</context>
</TS>
