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
    <name>BrowserTab</name>
    <message>
        <source>%1 wants to save several files.</source>
        <translation>%1 想要保存多个文件。</translation>
    </message>
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
    <message>
        <source>The page wanted to go to an address that this client does not open: %1</source>
        <translation>页面想要前往本客户端不打开的地址：%1</translation>
    </message>
    <message>
        <source>Type a web address above and press Enter.</source>
        <translation>请在上方输入网址，然后按回车键。</translation>
    </message>
    <message>
        <source>This app is a program of its own and has no web address. This client has no such program.</source>
        <translation>此应用是一个独立程序，没有网址。本客户端不包含该程序。</translation>
    </message>
    <message>
        <source>App: %1</source>
        <translation>应用：%1</translation>
    </message>
    <message>
        <source>This page has stopped working</source>
        <translation>此页面已停止工作</translation>
    </message>
    <message>
        <source>The process that shows the page ended unexpectedly. Other tabs are not affected. What was typed into the page may be lost.</source>
        <translation>显示此页面的进程意外结束。其他标签页不受影响。页面中已输入的内容可能会丢失。</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>重新加载</translation>
    </message>
    <message>
        <source>The list of apps has no app with this key. It may have been taken away from your account.</source>
        <translation>应用列表中没有使用此标识的应用。它可能已从您的账户中移除。</translation>
    </message>
    <message>
        <source>This app cannot be opened</source>
        <translation>无法打开此应用</translation>
    </message>
    <message>
        <source>Its address is not one that this client opens. It opens only web addresses that begin with http:// or https://.</source>
        <translation>该应用的地址不是本客户端可以打开的地址。本客户端只打开以 http:// 或 https:// 开头的网址。</translation>
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
        <source>“%1” was reached, but nothing answers there. The site may be down for a while.</source>
        <translation>已连接到“%1”，但没有响应。该网站可能暂时停止服务。</translation>
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
        <source>There is no network connection</source>
        <translation>没有网络连接</translation>
    </message>
    <message>
        <source>Check the network cable or the wireless connection, then try again.</source>
        <translation>请检查网线或无线连接，然后重试。</translation>
    </message>
    <message>
        <source>The connection broke off</source>
        <translation>连接已中断</translation>
    </message>
    <message>
        <source>“%1” ended the connection before the page was complete, or sent something that is no web page.</source>
        <translation>“%1”在页面传输完成之前断开了连接，或者发送的内容不是网页。</translation>
    </message>
    <message>
        <source>The page leads in a circle</source>
        <translation>页面循环跳转</translation>
    </message>
    <message>
        <source>“%1” sent the client on and on without ever showing a page.</source>
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
        <source>%1 wants to use camera and microphone.</source>
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
        <source>No safe connection to “%1” could be made: its certificate is not valid, or it does not speak the encryption that is needed. The page was not loaded. If this is a site of your company, tell its operator.</source>
        <translation>无法与“%1”建立安全连接：其证书无效，或者不支持所需的加密方式。页面未加载。如果这是贵公司的网站，请告知其管理员。</translation>
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
        <source>Offered at the next start, and opened again.</source>
        <translation>下次启动时已提示，并已重新打开。</translation>
    </message>
    <message>
        <source>Offered at the next start, and not wanted.</source>
        <translation>下次启动时已提示，但选择了不打开。</translation>
    </message>
    <message>
        <source>Open when the client ended, and never offered.</source>
        <translation>客户端结束时打开着，之后未曾提示。</translation>
    </message>
    <message>
        <source>What was kept of these tabs is damaged.</source>
        <translation>保存的标签页数据已损坏。</translation>
    </message>
    <message>
        <source>They were to open again, but not all did.</source>
        <translation>本应重新打开，但未能全部打开。</translation>
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
        <source>“%1” was not opened. This client opens only web addresses, such as shop.example or https://shop.example, without user name and password.</source>
        <translation>未打开“%1”。本客户端只打开不含用户名和密码的网址，例如 shop.example 或 https://shop.example。</translation>
    </message>
    <message>
        <source>Close tab</source>
        <translation>关闭标签页</translation>
    </message>
    <message>
        <source>Close other tabs</source>
        <translation>关闭其他标签页</translation>
    </message>
    <message>
        <source>Save file</source>
        <translation>保存文件</translation>
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
    <message>
        <source>Loading</source>
        <translation>正在加载</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页面</translation>
    </message>
    <message>
        <source>New &amp;tab</source>
        <translation>新标签页(&amp;T)</translation>
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
        <source>&amp;Zoom</source>
        <translation>缩放(&amp;Z)</translation>
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
        <source>&amp;Appearance</source>
        <translation>外观(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>语言(&amp;L)</translation>
    </message>
    <message>
        <source>Log &amp;out</source>
        <translation>退出登录(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>Like the system</source>
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
        <source>Changes that you made there may not be saved.</source>
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
        <source>Log-in at a site</source>
        <translation>登录网站</translation>
    </message>
    <message>
        <source>“%1” asks for a user name and a password.</source>
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
        <source>Let this page show no more messages</source>
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
        <source>The page is longer. Only the first %1 are shown.</source>
        <translation>页面内容更长，仅显示前 %1。</translation>
    </message>
    <message>
        <source>of an unknown kind</source>
        <translation>未知类型</translation>
    </message>
    <message>
        <source>What the site sent is no text (%1), and is not shown here.</source>
        <translation>网站发送的内容不是文本（%1），此处不予显示。</translation>
    </message>
    <message>
        <source>What the site sent is no text (%1, %2), and is not shown here.</source>
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
        <source>nothing may be written to this folder.</source>
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
        <source>it broke off for a reason that is not known.</source>
        <translation>下载中断，原因未知。</translation>
    </message>
</context>
</TS>
