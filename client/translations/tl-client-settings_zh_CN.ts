<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
    <context>
        <name>AboutPage</name>
        <message>
            <source>Licences</source>
            <translation>许可证</translation>
        </message>
        <message>
            <source>Of the software that the client is made with.</source>
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
            <source>The colours of the client, not those of web pages.</source>
            <translation>客户端的颜色，不影响网页。</translation>
        </message>
        <message>
            <source>Size</source>
            <translation>大小</translation>
        </message>
        <message>
            <source>Of texts, buttons and everything else in the client.</source>
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
            <source>Of the client and, where they have it, of web pages.</source>
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
            <source>Cookies of pages, now; cache and whatever else they stored, at the next start.</source>
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
            <source>This signs you out of the pages that you opened. Clear their data?</source>
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
            <source>The session is not valid any longer.</source>
            <translation>会话已失效。</translation>
        </message>
        <message>
            <source>The gateway refused it: %1</source>
            <translation>网关已拒绝：%1</translation>
        </message>
        <message>
            <source>The gateway's answer could not be understood.</source>
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
            <source>Drops the change and shows what is stored</source>
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
            <source>A change could not be saved. It is lost when you close the settings.</source>
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
            <source>A change could not be saved. It is lost when the pages are shown anew for this choice.</source>
            <translation>有更改未能保存。应用此选择需要重新显示页面，该更改将丢失。</translation>
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
</TS>
