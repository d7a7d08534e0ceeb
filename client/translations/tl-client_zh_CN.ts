<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>AddressBar</name>
    <message>
        <source>Type a web address</source>
        <translation>输入网址</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>The connection to this site is encrypted.</source>
        <translation>与此网站的连接已加密。</translation>
    </message>
    <message>
        <source>Secure connection</source>
        <translation>安全连接</translation>
    </message>
    <message>
        <source>Not secure</source>
        <translation>不安全</translation>
    </message>
    <message>
        <source>The connection to this site is not encrypted. Others on the network can read and change it.</source>
        <translation>与此网站的连接未加密，网络上的其他人可以读取和篡改内容。</translation>
    </message>
</context>
<context>
    <name>DownloadNotices</name>
    <message>
        <source>Downloading %1: %2 of %3</source>
        <translation>正在下载 %1：%2 / %3</translation>
    </message>
    <message>
        <source>Downloading %1: %2</source>
        <translation>正在下载 %1：%2</translation>
    </message>
    <message>
        <source>Downloading %1</source>
        <translation>正在下载 %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>%1 was saved.</source>
        <translation>%1 已保存。</translation>
    </message>
    <message>
        <source>Show in folder</source>
        <translation>在文件夹中显示</translation>
    </message>
    <message>
        <source>%1 could not be saved: %2</source>
        <translation>无法保存 %1：%2</translation>
    </message>
</context>
<context>
    <name>EarlierTabsDialog</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Open 1 tab</source>
        <translation>打开 1 个标签页</translation>
    </message>
    <message>
        <source>Open %1 tabs</source>
        <translation>打开 %1 个标签页</translation>
    </message>
    <message>
        <source>Earlier tabs</source>
        <translation>以前的标签页</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Tabs that were open when the client was interrupted or restarted. Tick those that you want to open.</source>
        <translation>客户端中断或重新启动时打开着的标签页。请勾选要打开的标签页。</translation>
    </message>
    <message>
        <source>There are no earlier tabs.

When the client is interrupted, the tabs that were open are kept here.</source>
        <translation>没有以前的标签页。

客户端中断时，当时打开的标签页会保留在这里。</translation>
    </message>
</context>
<context>
    <name>EarlierTabsModel</name>
    <message>
        <source>Offered at the next start and opened again.</source>
        <translation>下次启动时已提示，并已重新打开。</translation>
    </message>
    <message>
        <source>Offered at the next start and declined.</source>
        <translation>下次启动时已提示，但选择了不打开。</translation>
    </message>
    <message>
        <source>Open when the client ended, but never offered.</source>
        <translation>客户端结束时打开着，之后未曾提示。</translation>
    </message>
    <message>
        <source>The saved record of these tabs is damaged.</source>
        <translation>保存的标签页数据已损坏。</translation>
    </message>
    <message>
        <source>Not all of these tabs could be reopened.</source>
        <translation>未能重新打开全部这些标签页。</translation>
    </message>
    <message>
        <source>1 tab</source>
        <translation>1 个标签页</translation>
    </message>
    <message>
        <source>%1 tabs</source>
        <translation>%1 个标签页</translation>
    </message>
    <message>
        <source>App</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>%1 – %2</source>
        <comment>moment – number of tabs</comment>
        <translation>%1 – %2</translation>
    </message>
    <message>
        <source>%1 Some could not be read and are missing.</source>
        <translation>%1部分标签页无法读取，未在此列出。</translation>
    </message>
    <message>
        <source>At an unknown time</source>
        <translation>时间未知</translation>
    </message>
    <message>
        <source>Today at %1</source>
        <translation>今天 %1</translation>
    </message>
    <message>
        <source>Yesterday at %1</source>
        <translation>昨天 %1</translation>
    </message>
    <message>
        <source>%1 at %2</source>
        <comment>date at time</comment>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>FindBar</name>
    <message>
        <source>Not found</source>
        <translation>未找到</translation>
    </message>
    <message>
        <source>Matches: %1</source>
        <translation>匹配：%1</translation>
    </message>
    <message>
        <source>Find in page</source>
        <translation>在页面中查找</translation>
    </message>
    <message>
        <source>Previous match (Shift+Enter)</source>
        <translation>上一个匹配 (Shift+Enter)</translation>
    </message>
    <message>
        <source>Next match (Enter)</source>
        <translation>下一个匹配 (Enter)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
</context>
<context>
    <name>HomePage</name>
    <message>
        <source>Welcome</source>
        <translation>欢迎</translation>
    </message>
    <message>
        <source>Welcome, %1</source>
        <translation>欢迎，%1</translation>
    </message>
    <message>
        <source>Search apps</source>
        <translation>搜索应用</translation>
    </message>
    <message>
        <source>Apps</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Home</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>There are no apps in your account yet.</source>
        <translation>您的账户中还没有应用。</translation>
    </message>
    <message>
        <source>No app has this name.</source>
        <translation>没有此名称的应用。</translation>
    </message>
</context>
<context>
    <name>MainWindowPrivate</name>
    <message>
        <source>Loading</source>
        <translation>正在加载</translation>
    </message>
    <message>
        <source>“%1” was not opened. This client opens only web addresses, such as shop.example or https://shop.example, without a user name or password.</source>
        <translation>未打开“%1”。本客户端只打开不含用户名和密码的网址，例如 shop.example 或 https://shop.example。</translation>
    </message>
    <message>
        <source>Save file</source>
        <translation>保存文件</translation>
    </message>
</context>
<context>
    <name>MessagePage</name>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
</context>
<context>
    <name>NoticeItem</name>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Close this message</source>
        <translation>关闭此消息</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
</context>
<context>
    <name>PageDialog</name>
    <message>
        <source>Leave the page?</source>
        <translation>离开此页面？</translation>
    </message>
    <message>
        <source>Leave the page at “%1”?</source>
        <translation>要离开“%1”的页面吗？</translation>
    </message>
    <message>
        <source>Changes you made there may not be saved.</source>
        <translation>您在其中所做的更改可能不会保存。</translation>
    </message>
    <message>
        <source>Leave</source>
        <translation>离开</translation>
    </message>
    <message>
        <source>Stay</source>
        <translation>留下</translation>
    </message>
    <message>
        <source>Log in to a site</source>
        <translation>登录网站</translation>
    </message>
    <message>
        <source>“%1” asks for a user name and password.</source>
        <translation>“%1”要求输入用户名和密码。</translation>
    </message>
    <message>
        <source>User name</source>
        <translation>用户名</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>The connection is not encrypted: others may read what you type.</source>
        <translation>连接未加密：他人可能会看到您输入的内容。</translation>
    </message>
    <message>
        <source>Log in</source>
        <translation>登录</translation>
    </message>
    <message>
        <source>This page</source>
        <translation>此页面</translation>
    </message>
    <message>
        <source>Message from a page</source>
        <translation>页面消息</translation>
    </message>
    <message>
        <source>The page at “%1” says:</source>
        <translation>“%1”的页面显示：</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>回答</translation>
    </message>
    <message>
        <source>Stop this page from showing messages</source>
        <translation>不再显示此页面的消息</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>PageQuestions</name>
    <message>
        <source>%1 wants to know where you are.</source>
        <translation>%1 想要获取您的位置。</translation>
    </message>
    <message>
        <source>%1 wants to show notifications.</source>
        <translation>%1 想要显示通知。</translation>
    </message>
    <message>
        <source>%1 wants to use the microphone.</source>
        <translation>%1 想要使用麦克风。</translation>
    </message>
    <message>
        <source>%1 wants to use the camera.</source>
        <translation>%1 想要使用摄像头。</translation>
    </message>
    <message>
        <source>%1 wants to use the camera and the microphone.</source>
        <translation>%1 想要使用摄像头和麦克风。</translation>
    </message>
    <message>
        <source>%1 wants to record the screen.</source>
        <translation>%1 想要录制屏幕。</translation>
    </message>
    <message>
        <source>%1 wants to hide the mouse pointer.</source>
        <translation>%1 想要隐藏鼠标指针。</translation>
    </message>
    <message>
        <source>%1 wants to save several files.</source>
        <translation>%1 想要保存多个文件。</translation>
    </message>
    <message>
        <source>Allow</source>
        <translation>允许</translation>
    </message>
    <message>
        <source>Do not allow</source>
        <translation>不允许</translation>
    </message>
    <message>
        <source>The page wants to open another program: %1</source>
        <translation>页面想要打开其他程序：%1</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The page wanted to go to an address that this client does not open: %1</source>
        <translation>页面想要前往本客户端不打开的地址：%1</translation>
    </message>
</context>
<context>
    <name>PageStack</name>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
</context>
<context>
    <name>PlainPageView</name>
    <message>
        <source>Open in the system browser</source>
        <translation>在系统浏览器中打开</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>地址</translation>
    </message>
    <message>
        <source>Text of the page</source>
        <translation>页面文本</translation>
    </message>
    <message>
        <source>The page is longer than this. Only the first %1 are shown.</source>
        <translation>页面内容更长，仅显示前 %1。</translation>
    </message>
    <message>
        <source>of an unknown kind</source>
        <translation>未知类型</translation>
    </message>
    <message>
        <source>The site sent something other than text (%1), which is not shown here.</source>
        <translation>网站发送的内容不是文本（%1），此处不予显示。</translation>
    </message>
    <message>
        <source>The site sent something other than text (%1, %2), which is not shown here.</source>
        <translation>网站发送的内容不是文本（%1，%2），此处不予显示。</translation>
    </message>
</context>
<context>
    <name>TabButton</name>
    <message>
        <source>Close tab</source>
        <translation>关闭标签页</translation>
    </message>
</context>
<context>
    <name>TabFace</name>
    <message>
        <source>Home</source>
        <translation>首页</translation>
    </message>
    <message>
        <source>Address not opened</source>
        <translation>地址未打开</translation>
    </message>
    <message>
        <source>Unknown app</source>
        <translation>未知应用</translation>
    </message>
    <message>
        <source>App not opened</source>
        <translation>应用未打开</translation>
    </message>
    <message>
        <source>New tab</source>
        <translation>新标签页</translation>
    </message>
</context>
<context>
    <name>TabListPopup</name>
    <message>
        <source>Search tabs</source>
        <translation>搜索标签页</translation>
    </message>
    <message>
        <source>All tabs</source>
        <translation>所有标签页</translation>
    </message>
</context>
<context>
    <name>TabMenu</name>
    <message>
        <source>Reload</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Close tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Close other tabs</source>
        <translation>关闭其他标签页</translation>
    </message>
</context>
<context>
    <name>TabMessages</name>
    <message>
        <source>New tab</source>
        <translation>新标签页</translation>
    </message>
    <message>
        <source>Type a web address above and press Enter.</source>
        <translation>请在上方输入网址，然后按回车键。</translation>
    </message>
    <message>
        <source>This app is a separate program and has no web address. This client does not include it.</source>
        <translation>此应用是一个独立程序，没有网址。本客户端不包含该程序。</translation>
    </message>
    <message>
        <source>App: %1</source>
        <translation>应用：%1</translation>
    </message>
    <message>
        <source>Unknown app</source>
        <translation>未知应用</translation>
    </message>
    <message>
        <source>Your list of apps has no app with this key. Your account may no longer include it.</source>
        <translation>您的应用列表中没有使用此标识的应用。您的账户可能已不再包含它。</translation>
    </message>
    <message>
        <source>This app cannot be opened</source>
        <translation>无法打开此应用</translation>
    </message>
    <message>
        <source>This client cannot open the app's address. It opens only web addresses that begin with http:// or https://.</source>
        <translation>本客户端无法打开该应用的地址。本客户端只打开以 http:// 或 https:// 开头的网址。</translation>
    </message>
    <message>
        <source>This address was not opened</source>
        <translation>此地址未打开</translation>
    </message>
    <message>
        <source>The address is empty.</source>
        <translation>地址为空。</translation>
    </message>
    <message>
        <source>This client opens only web addresses that begin with http:// or https:// and contain no user name or password.</source>
        <translation>本客户端只打开以 http:// 或 https:// 开头且不含用户名和密码的网址。</translation>
    </message>
    <message>
        <source>This page has stopped working</source>
        <translation>此页面已停止工作</translation>
    </message>
    <message>
        <source>The process that shows the page ended unexpectedly. Other tabs are not affected. What you typed into the page may be lost.</source>
        <translation>显示此页面的进程意外结束。其他标签页不受影响。您在页面中输入的内容可能会丢失。</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>This page could not be loaded</source>
        <translation>无法加载此页面</translation>
    </message>
    <message>
        <source>The site was not found</source>
        <translation>找不到此网站</translation>
    </message>
    <message>
        <source>There is no site named “%1”. Check the address for typing errors.</source>
        <translation>没有名为“%1”的网站。请检查网址是否输入有误。</translation>
    </message>
    <message>
        <source>The site refused the connection</source>
        <translation>网站拒绝了连接</translation>
    </message>
    <message>
        <source>“%1” can be reached, but nothing answers there. The site may be down for a while.</source>
        <translation>可以连接到“%1”，但没有响应。该网站可能暂时停止服务。</translation>
    </message>
    <message>
        <source>The site took too long to answer</source>
        <translation>网站响应超时</translation>
    </message>
    <message>
        <source>“%1” may be busy or out of reach. Try again in a moment.</source>
        <translation>“%1”可能繁忙或无法访问。请稍后重试。</translation>
    </message>
    <message>
        <source>The connection is not safe</source>
        <translation>连接不安全</translation>
    </message>
    <message>
        <source>No safe connection to “%1” could be made: its certificate is not valid, or it does not support the required encryption. The page was not loaded. If this is a site of your company, tell its operator.</source>
        <translation>无法与“%1”建立安全连接：其证书无效，或者不支持所需的加密方式。页面未加载。如果这是贵公司的网站，请告知其管理员。</translation>
    </message>
    <message>
        <source>There is no network connection</source>
        <translation>没有网络连接</translation>
    </message>
    <message>
        <source>Check the network cable or the wireless connection, then try again.</source>
        <translation>请检查网线或无线连接，然后重试。</translation>
    </message>
    <message>
        <source>The connection was lost</source>
        <translation>连接已中断</translation>
    </message>
    <message>
        <source>“%1” ended the connection before the page was complete, or sent something that is not a web page.</source>
        <translation>“%1”在页面传输完成之前断开了连接，或者发送的内容不是网页。</translation>
    </message>
    <message>
        <source>The page redirects in a circle</source>
        <translation>页面循环跳转</translation>
    </message>
    <message>
        <source>“%1” kept redirecting without ever showing a page.</source>
        <translation>“%1”不断跳转，始终没有显示页面。</translation>
    </message>
    <message>
        <source>The site reported an error</source>
        <translation>网站报告了错误</translation>
    </message>
    <message>
        <source>“%1” was reached, but cannot show this page.</source>
        <translation>已连接到“%1”，但它无法显示此页面。</translation>
    </message>
    <message>
        <source>The client does not connect to this address.</source>
        <translation>客户端不会连接到此地址。</translation>
    </message>
    <message>
        <source>“%1” could not be shown. Try again in a moment.</source>
        <translation>无法显示“%1”。请稍后重试。</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
</context>
<context>
    <name>TabStrip</name>
    <message>
        <source>Scroll tabs to the left</source>
        <translation>向左滚动标签页</translation>
    </message>
    <message>
        <source>Scroll tabs to the right</source>
        <translation>向右滚动标签页</translation>
    </message>
    <message>
        <source>New tab (Ctrl+T)</source>
        <translation>新标签页 (Ctrl+T)</translation>
    </message>
    <message>
        <source>List of all tabs</source>
        <translation>所有标签页列表</translation>
    </message>
    <message>
        <source>Tabs</source>
        <translation>标签页</translation>
    </message>
</context>
<context>
    <name>Toolbar</name>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Stop loading (Esc)</source>
        <translation>停止加载 (Esc)</translation>
    </message>
    <message>
        <source>Reload (F5)</source>
        <translation>重新加载 (F5)</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Back (Alt+Left)</source>
        <translation>后退 (Alt+←)</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Forward (Alt+Right)</source>
        <translation>前进 (Alt+→)</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>菜单</translation>
    </message>
    <message>
        <source>Menu (F10)</source>
        <translation>菜单 (F10)</translation>
    </message>
</context>
<context>
    <name>WebEngineView</name>
    <message>
        <source>Open link in new tab</source>
        <translation>在新标签页中打开链接</translation>
    </message>
    <message>
        <source>Copy link address</source>
        <translation>复制链接地址</translation>
    </message>
    <message>
        <source>Save image…</source>
        <translation>保存图片…</translation>
    </message>
    <message>
        <source>Copy image</source>
        <translation>复制图片</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Select all</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>后退</translation>
    </message>
    <message>
        <source>Forward</source>
        <translation>前进</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新加载</translation>
    </message>
</context>
<context>
    <name>WebEngineDownload</name>
    <message>
        <source>the disk is full.</source>
        <translation>磁盘已满。</translation>
    </message>
    <message>
        <source>this folder cannot be written to.</source>
        <translation>无法写入该文件夹。</translation>
    </message>
    <message>
        <source>the name is too long.</source>
        <translation>名称过长。</translation>
    </message>
    <message>
        <source>the file is too large for this disk.</source>
        <translation>文件过大，该磁盘无法容纳。</translation>
    </message>
    <message>
        <source>a security check refused it.</source>
        <translation>未通过安全检查。</translation>
    </message>
    <message>
        <source>the file could not be written.</source>
        <translation>无法写入文件。</translation>
    </message>
    <message>
        <source>the site does not allow it.</source>
        <translation>网站不允许。</translation>
    </message>
    <message>
        <source>the connection is not safe.</source>
        <translation>连接不安全。</translation>
    </message>
    <message>
        <source>the site reported an error.</source>
        <translation>网站报告了错误。</translation>
    </message>
    <message>
        <source>the connection broke off.</source>
        <translation>连接已中断。</translation>
    </message>
    <message>
        <source>it broke off for an unknown reason.</source>
        <translation>下载中断，原因未知。</translation>
    </message>
</context>
<context>
    <name>TroubleNotices</name>
    <message>
        <source>Damaged settings were reset (%1). The originals are kept in the settings file.</source>
        <translation>损坏的设置已重置（%1 项）。原始数据保留在设置文件中。</translation>
    </message>
    <message>
        <source>The client could not read which pages and apps to open at start.</source>
        <translation>无法读取启动时打开的列表。</translation>
    </message>
    <message>
        <source>The session could not be saved in the system&apos;s key store. You will have to log in again next time.</source>
        <translation>无法将会话保存到系统密钥库。下次需要重新登录。</translation>
    </message>
    <message>
        <source>The client could not use its settings file. The old file is kept as %1.</source>
        <translation>客户端无法使用其设置文件。旧文件保留为 %1。</translation>
    </message>
    <message>
        <source>The client cannot save its settings. Your changes will be lost when it closes.</source>
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
        <source>The account or password is incorrect.</source>
        <translation>账号或密码错误。</translation>
    </message>
    <message>
        <source>Too many failed attempts. Please try again at %1.</source>
        <translation>失败次数过多。请在 %1 后重试。</translation>
    </message>
    <message>
        <source>Too many failed attempts. Please try again in a few minutes.</source>
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
        <source>This computer&apos;s clock is wrong. It should show %1. Please correct it.</source>
        <translation>本机时间不正确，应为 %1；请校准时间。</translation>
    </message>
    <message>
        <source>This computer&apos;s clock is wrong. Please correct it.</source>
        <translation>本机时间不正确。请校准时间。</translation>
    </message>
    <message>
        <source>This client is not set up for this gateway. Please contact your administrator.</source>
        <translation>此客户端尚未针对该网关进行配置。请联系管理员。</translation>
    </message>
    <message>
        <source>The gateway is busy. Please try again shortly.</source>
        <translation>网关繁忙。请稍后重试。</translation>
    </message>
    <message>
        <source>The reply could not be read. Is this the gateway&apos;s address?</source>
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
        <source>Your session is no longer valid. Please log in again.</source>
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
        <source>The module failed to initialise.</source>
        <translation>模块初始化失败。</translation>
    </message>
    <message>
        <source>The file is damaged or not a plug-in: %1</source>
        <translation>文件已损坏或不是插件：%1</translation>
    </message>
    <message>
        <source>The module was built for version %1 of the module interface; this client has version %2.</source>
        <translation>模块针对接口版本 %1 构建，本客户端的接口版本为 %2。</translation>
    </message>
    <message>
        <source>The file is a different kind of plug-in: its interface is &quot;%1&quot;, not &quot;%2&quot;.</source>
        <translation>该文件是其他类型的插件：其接口为“%1”，而不是“%2”。</translation>
    </message>
    <message>
        <source>The module does not name its key.</source>
        <translation>模块未声明标识。</translation>
    </message>
    <message>
        <source>A module with the key &quot;%1&quot; is already loaded from %2.</source>
        <translation>标识为“%1”的模块已存在，来自 %2。</translation>
    </message>
</context>
<context>
    <name>SystemKeyStore</name>
    <message>
        <source>This system has no key store to save a session in.</source>
        <translation>此系统没有可保存会话的密钥库。</translation>
    </message>
    <message>
        <source>The key store is not responding.</source>
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
    <name>TabKeeper</name>
    <message>
        <source>&amp;Earlier tabs…</source>
        <translation>以前的标签页(&amp;E)…</translation>
    </message>
    <message>
        <source>Earlier tabs…</source>
        <translation>以前的标签页…</translation>
    </message>
    <message>
        <source>The saved tabs of your last session are damaged and cannot be read.</source>
        <translation>您上次会话保存的标签页已损坏，无法读取。</translation>
    </message>
    <message>
        <source>Part of the saved tabs of your last session is damaged. The rest is open again (tabs: %1).</source>
        <translation>您上次会话保存的标签页部分损坏。其余的已重新打开（标签页：%1 个）。</translation>
    </message>
    <message>
        <source>%1 of the %2 tabs of your last session came back. “Earlier tabs…” has all of them.</source>
        <translation>您上次会话的 %2 个标签页中恢复了 %1 个。“以前的标签页…”中有全部标签页。</translation>
    </message>
    <message>
        <source>The client crashed twice after it had reopened your tabs. This time, each page loads only when you select its tab.</source>
        <translation>客户端在重新打开您的标签页后两次崩溃。这一次，页面只在您选择其标签页时才加载。</translation>
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
        <source>The client could not restart. Please start it manually.</source>
        <translation>无法重新启动客户端。请手动启动。</translation>
    </message>
</context>
<context>
    <name>AboutPage</name>
    <message>
        <source>Licences</source>
        <translation>许可证</translation>
    </message>
    <message>
        <source>For the software that the client is built with.</source>
        <translation>客户端所用软件的许可证。</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>版本</translation>
    </message>
</context>
<context>
    <name>AccessibleNames</name>
    <message>
        <source>%1: %2</source>
        <comment>button: entry</comment>
        <translation>%1：%2</translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>编辑 %1</translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>删除 %1</translation>
    </message>
</context>
<context>
    <name>AppearancePage</name>
    <message>
        <source>Theme</source>
        <translation>主题</translation>
    </message>
    <message>
        <source>The colours of the client, but not of web pages.</source>
        <translation>客户端的颜色，不影响网页。</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>大小</translation>
    </message>
    <message>
        <source>For text, buttons and everything else in the client.</source>
        <translation>客户端中文字、按钮等所有内容的大小。</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>缩放</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Colour</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>字体</translation>
    </message>
</context>
<context>
    <name>LanguagePage</name>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>For the client and, where they support it, web pages.</source>
        <translation>客户端的语言；支持该语言的网页也会使用它。</translation>
    </message>
</context>
<context>
    <name>MonitorEventModel</name>
    <message>
        <source>Time</source>
        <translation>时间</translation>
    </message>
    <message>
        <source>Event</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>参数</translation>
    </message>
</context>
<context>
    <name>MonitoringPage</name>
    <message>
        <source>Recorded actions</source>
        <translation>操作记录</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Clear the recorded actions</source>
        <translation>清除操作记录</translation>
    </message>
    <message>
        <source>Monitoring</source>
        <translation>监控</translation>
    </message>
    <message>
        <source>Events</source>
        <translation>事件</translation>
    </message>
    <message>
        <source>Log</source>
        <translation>日志</translation>
    </message>
    <message>
        <source>What you do on settings pages is recorded on this computer.</source>
        <translation>您在设置页面的操作会记录在本机。</translation>
    </message>
</context>
<context>
    <name>PrivacyPage</name>
    <message>
        <source>Browsing data</source>
        <translation>浏览数据</translation>
    </message>
    <message>
        <source>Clears cookies now; the cache and other data of pages at the next start.</source>
        <translation>立即清除网页的 Cookie；缓存和网页存储的其他数据在下次启动时清除。</translation>
    </message>
    <message>
        <source>Stay signed in</source>
        <translation>保持登录</translation>
    </message>
    <message>
        <source>The session that lets you in without a password next time.</source>
        <translation>下次无需密码即可登录的会话。</translation>
    </message>
    <message>
        <source>Last known configuration</source>
        <translation>上次的配置</translation>
    </message>
    <message>
        <source>What the client shows while the gateway cannot be reached.</source>
        <translation>无法连接网关时客户端显示的内容。</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>隐私</translation>
    </message>
    <message>
        <source>Cookies</source>
        <translation>Cookie</translation>
    </message>
    <message>
        <source>Cache</source>
        <translation>缓存</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>密码</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>Cleared</source>
        <translation>已清除</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>重试</translation>
    </message>
    <message>
        <source>Forgotten</source>
        <translation>已清除</translation>
    </message>
    <message>
        <source>Forget</source>
        <translation>清除</translation>
    </message>
    <message>
        <source>This signs you out of the pages you opened. Clear their data?</source>
        <translation>您将退出已打开网页的登录。确定清除这些网页的数据吗？</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>The data could not be cleared.</source>
        <translation>无法清除数据。</translation>
    </message>
</context>
<context>
    <name>SaveProblem</name>
    <message>
        <source>The gateway did not answer in time.</source>
        <translation>网关未及时响应。</translation>
    </message>
    <message>
        <source>The gateway cannot be reached.</source>
        <translation>无法连接网关。</translation>
    </message>
    <message>
        <source>The gateway could not store it.</source>
        <translation>网关无法存储。</translation>
    </message>
    <message>
        <source>The session is no longer valid.</source>
        <translation>会话已失效。</translation>
    </message>
    <message>
        <source>The gateway refused it: %1</source>
        <translation>网关已拒绝：%1</translation>
    </message>
    <message>
        <source>The gateway&apos;s answer could not be understood.</source>
        <translation>无法理解网关的响应。</translation>
    </message>
</context>
<context>
    <name>SaveStatus</name>
    <message>
        <source>Saving…</source>
        <translation>正在保存…</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>已保存</translation>
    </message>
    <message>
        <source>Not saved. %1 The change stays on this page and goes out with your next one.</source>
        <translation>未保存。%1更改会保留在此页面，并随您的下一次更改一起提交。</translation>
    </message>
    <message>
        <source>Not saved. %1 Nothing on this page can be saved until you change or delete that entry.</source>
        <translation>未保存。%1在您更改或删除该条目之前，此页面上的内容都无法保存。</translation>
    </message>
    <message>
        <source>Load again</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>Discards the change and shows what is stored</source>
        <translation>放弃更改，显示已存储的内容</translation>
    </message>
    <message>
        <source>The page was loaded again before your last change could be saved. Please check it and change it again.</source>
        <translation>页面已重新加载，您的上一次更改未能保存。请检查并重新更改。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>The gateway cannot be reached. This is the last known configuration; it can be changed once the gateway answers.</source>
        <translation>无法连接网关。当前显示的是上次的配置，网关恢复响应后才能更改。</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>A change could not be saved. Closing the settings discards it.</source>
        <translation>有更改未能保存。关闭设置后该更改将丢失。</translation>
    </message>
    <message>
        <source>Close anyway</source>
        <translation>仍然关闭</translation>
    </message>
    <message>
        <source>Keep open</source>
        <translation>保持打开</translation>
    </message>
    <message>
        <source>A change could not be saved. This choice reloads the pages and discards it.</source>
        <translation>有更改未能保存。应用此选择会重新加载页面，该更改将丢失。</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>设置</translation>
    </message>
</context>
<context>
    <name>SettingsPageFaces</name>
    <message>
        <source>Appearance</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Opening at start</source>
        <translation>启动时打开</translation>
    </message>
    <message>
        <source>Privacy</source>
        <translation>隐私</translation>
    </message>
    <message>
        <source>Monitoring</source>
        <translation>监控</translation>
    </message>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>More settings</source>
        <translation>更多设置</translation>
    </message>
</context>
<context>
    <name>SettingsPageList</name>
    <message>
        <source>Search settings</source>
        <translation>搜索设置</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>Nothing found</source>
        <translation>未找到</translation>
    </message>
</context>
<context>
    <name>WindowActions</name>
    <message>
        <source>New &amp;tab</source>
        <translation>新标签页(&amp;T)</translation>
    </message>
    <message>
        <source>Close tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Reopen &amp;closed tab</source>
        <translation>重新打开关闭的标签页(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Find in page…</source>
        <translation>在页面中查找(&amp;F)…</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Actual size</source>
        <translation>实际大小</translation>
    </message>
    <message>
        <source>Log &amp;out</source>
        <translation>退出登录(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
</context>
<context>
    <name>WindowMenu</name>
    <message>
        <source>&amp;Zoom</source>
        <translation>缩放(&amp;Z)</translation>
    </message>
    <message>
        <source>&amp;Appearance</source>
        <translation>外观(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>Follow the system</source>
        <translation>跟随系统</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>浅色</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>深色</translation>
    </message>
</context>
</TS>
