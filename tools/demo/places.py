# SPDX-License-Identifier: GPL-3.0-or-later
"""Where the demonstration's stations are: towns of the world, and the roads, seas and skies between them.

Positions are in degrees, north and east positive, good to a kilometre or so.
"""

# code, name, latitude, longitude, and the side on which there is land for many kilometres ("" all round)
TOWNS = """
NYC|New York|40.74|-73.95|N
PHL|Philadelphia|39.98|-75.17|
BAL|Baltimore|39.31|-76.63|NW
WAS|Washington|38.92|-77.04|
BOS|Boston|42.36|-71.12|W
HAR|Hartford|41.77|-72.69|
ALB|Albany|42.66|-73.79|
SYR|Syracuse|43.04|-76.14|
BUF|Buffalo|42.90|-78.82|SE
PIT|Pittsburgh|40.44|-79.98|
CLE|Cleveland|41.44|-81.68|S
CMH|Columbus|39.97|-83.00|
DET|Detroit|42.37|-83.12|NW
CHI|Chicago|41.86|-87.72|W
MKE|Milwaukee|43.05|-88.02|W
MSP|Minneapolis|44.97|-93.26|
STL|St. Louis|38.64|-90.27|
KSC|Kansas City|39.08|-94.57|
OMA|Omaha|41.26|-96.00|
DEN|Denver|39.73|-104.98|
SLC|Salt Lake City|40.74|-111.88|S
PHX|Phoenix|33.46|-112.06|
LAS|Las Vegas|36.17|-115.15|
LAX|Los Angeles|34.08|-118.22|N
SAN|San Diego|32.78|-117.07|NE
FRE|Fresno|36.75|-119.78|
SFO|San Francisco|37.75|-122.44|S
SAC|Sacramento|38.57|-121.48|
PDX|Portland|45.51|-122.65|
SEA|Seattle|47.62|-122.30|E
ATL|Atlanta|33.76|-84.39|
CLT|Charlotte|35.22|-80.84|
RDU|Raleigh|35.79|-78.65|
MIA|Miami|25.80|-80.25|NW
ORL|Orlando|28.53|-81.38|
NOL|New Orleans|29.97|-90.15|W
HOU|Houston|29.77|-95.40|NW
DAL|Dallas|32.79|-96.80|
AUS|Austin|30.28|-97.74|
NAS|Nashville|36.16|-86.78|
IND|Indianapolis|39.78|-86.15|
ANC|Anchorage|61.19|-149.85|E
FAI|Fairbanks|64.84|-147.72|
HNL|Honolulu|21.33|-157.85|N
TOR|Toronto|43.70|-79.42|N
OTT|Ottawa|45.41|-75.70|
MTL|Montreal|45.53|-73.62|
HAL|Halifax|44.67|-63.62|NW
WPG|Winnipeg|49.89|-97.14|
CAL|Calgary|51.04|-114.07|
VAN|Vancouver|49.24|-123.10|E
MEX|Mexico City|19.42|-99.13|
GDL|Guadalajara|20.67|-103.35|
MTY|Monterrey|25.67|-100.31|
HAV|Havana|23.10|-82.37|S
SJU|San Juan|18.40|-66.07|S
PAN|Panama|9.01|-79.53|NW
BOG|Bogota|4.65|-74.08|
CCS|Caracas|10.48|-66.88|S
UIO|Quito|-0.22|-78.51|
LIM|Lima|-12.06|-77.03|E
SCL|Santiago|-33.45|-70.66|
EZE|Buenos Aires|-34.61|-58.44|W
ROS|Rosario|-32.95|-60.68|W
COR|Cordoba|-31.41|-64.19|
MVD|Montevideo|-34.86|-56.17|N
POA|Porto Alegre|-30.04|-51.20|N
SAO|Sao Paulo|-23.55|-46.63|
RIO|Rio de Janeiro|-22.90|-43.28|N
BHZ|Belo Horizonte|-19.92|-43.94|
BSB|Brasilia|-15.79|-47.89|
REK|Reykjavik|64.12|-21.88|SE
DUB|Dublin|53.34|-6.29|W
COK|Cork|51.90|-8.48|N
EDI|Edinburgh|55.93|-3.20|S
GLA|Glasgow|55.86|-4.25|
MAN|Manchester|53.48|-2.24|
LEE|Leeds|53.80|-1.55|
BIR|Birmingham|52.48|-1.90|
BRI|Bristol|51.46|-2.59|E
LON|London|51.51|-0.12|
OXF|Oxford|51.75|-1.26|
LIS|Lisbon|38.74|-9.15|N
OPO|Porto|41.16|-8.60|E
MAD|Madrid|40.42|-3.70|
ZAR|Zaragoza|41.65|-0.88|
BCN|Barcelona|41.41|2.13|NW
PAR|Paris|48.86|2.35|
LYO|Lyon|45.76|4.84|
MRS|Marseille|43.32|5.42|N
TOU|Toulouse|43.60|1.44|
BRU|Brussels|50.85|4.35|
AMS|Amsterdam|52.35|4.90|S
RTM|Rotterdam|51.92|4.52|E
CGN|Cologne|50.94|6.95|
FRA|Frankfurt|50.11|8.68|
STU|Stuttgart|48.78|9.18|
MUC|Munich|48.14|11.57|
NUE|Nuremberg|49.45|11.08|
LEJ|Leipzig|51.34|12.37|
BER|Berlin|52.52|13.40|
HAM|Hamburg|53.56|10.00|
CPH|Copenhagen|55.68|12.50|W
GOT|Gothenburg|57.70|12.00|E
STO|Stockholm|59.32|18.03|W
OSL|Oslo|59.92|10.75|N
TRD|Trondheim|63.42|10.40|S
HEL|Helsinki|60.21|24.93|N
TAL|Tallinn|59.42|24.75|S
RIG|Riga|56.95|24.12|E
WAW|Warsaw|52.23|21.01|
POZ|Poznan|52.41|16.92|
KRK|Krakow|50.06|19.94|
PRG|Prague|50.08|14.44|
BRN|Brno|49.20|16.61|
VIE|Vienna|48.21|16.36|
BUD|Budapest|47.50|19.05|
ZUR|Zürich|47.40|8.54|N
BSL|Bern|46.95|7.44|
MIL|Milan|45.47|9.19|
BLQ|Bologna|44.50|11.34|
FLR|Florence|43.77|11.25|
ROM|Rome|41.90|12.50|E
NAP|Naples|40.87|14.28|NE
LJU|Ljubljana|46.05|14.51|
ZAG|Zagreb|45.81|15.98|
BEG|Belgrade|44.80|20.47|
SOF|Sofia|42.70|23.32|
BUH|Bucharest|44.43|26.10|
ATH|Athens|38.00|23.75|N
IST|Istanbul|41.06|28.90|NW
ANK|Ankara|39.93|32.85|
KIV|Kyiv|50.45|30.52|
MOW|Moscow|55.75|37.62|
LED|Saint Petersburg|59.93|30.36|E
TLV|Tel Aviv|32.08|34.82|E
CAI|Cairo|30.05|31.24|
CAS|Casablanca|33.56|-7.58|SE
NBO|Nairobi|-1.29|36.82|
JNB|Johannesburg|-26.20|28.04|
BFN|Bloemfontein|-29.12|26.21|
CPT|Cape Town|-33.95|18.52|E
DXB|Dubai|25.18|55.30|SE
DEL|Delhi|28.63|77.22|
AGR|Agra|27.18|78.02|
BOM|Mumbai|19.10|72.92|NE
BLR|Bangalore|12.97|77.59|
CCU|Kolkata|22.57|88.36|N
BKK|Bangkok|13.76|100.52|N
KUL|Kuala Lumpur|3.14|101.69|
SIN|Singapore|1.35|103.82|
JKT|Jakarta|-6.24|106.83|S
MNL|Manila|14.64|121.04|NE
HKG|Hong Kong|22.40|114.12|N
TPE|Taipei|25.04|121.54|S
SEL|Seoul|37.55|126.99|
DJN|Daejeon|36.35|127.38|
PUS|Busan|35.18|129.05|N
FUK|Fukuoka|33.57|130.42|S
HIJ|Hiroshima|34.42|132.46|N
OSA|Osaka|34.70|135.52|E
NGO|Nagoya|35.18|136.93|N
TYO|Tōkyō|35.70|139.70|W
SDJ|Sendai|38.27|140.85|W
CTS|Sapporo|43.05|141.34|S
PER|Perth|-31.93|115.88|E
ADL|Adelaide|-34.90|138.63|NE
MEL|Melbourne|-37.80|145.00|NE
CBR|Canberra|-35.30|149.13|
SYD|Sydney|-33.87|151.10|W
BNE|Brisbane|-27.48|153.00|W
AKL|Auckland|-36.92|174.78|S
WLG|Wellington|-41.24|174.80|NE
CHC|Christchurch|-43.53|172.60|W
"""

# Points that routes pass besides towns.
POINTS = {
    "Trenton": (40.22, -74.76), "New Haven": (41.31, -72.93), "Providence": (41.82, -71.42),
    "Utica": (43.10, -75.23), "Rochester": (43.15, -77.61), "Erie": (42.12, -80.08), "Toledo": (41.65, -83.54),
    "Gary": (41.55, -87.35), "Springfield": (39.80, -89.64), "Columbia MO": (38.95, -92.33),
    "Barstow": (34.89, -117.02), "Bakersfield": (35.37, -119.02), "Salem": (44.94, -123.03),
    "Centralia": (46.72, -122.95), "Greenville": (34.85, -82.40), "Waco": (31.55, -97.15), "Kingston": (44.25, -76.55),
    "Milton Keynes": (52.04, -0.76), "Stoke": (53.00, -2.18), "Carlisle": (54.89, -2.93), "Swindon": (51.56, -1.78),
    "Lille": (50.63, 3.06), "Dijon": (47.32, 5.04), "Valence": (44.93, 4.89), "Lleida": (41.62, 0.62),
    "Calatayud": (41.35, -1.64), "Wurzburg": (49.79, 9.95), "Hof": (50.31, 11.91), "Ingolstadt": (48.77, 11.42),
    "Wittenberge": (53.00, 11.75), "Jihlava": (49.40, 15.59), "Breclav": (48.76, 16.88), "Gyor": (47.69, 17.63),
    "Chiasso": (45.83, 9.03), "Gotthard": (46.66, 8.59), "Arezzo": (43.46, 11.88), "Orvieto": (42.72, 12.11),
    "Orebro": (59.27, 15.21), "Linkoping": (58.41, 15.62), "Jonkoping": (57.78, 14.16), "Hamamatsu": (34.71, 137.73),
    "Shizuoka": (34.98, 138.38), "Gotemba": (35.31, 138.93), "Okayama": (34.66, 133.93), "Daegu": (35.87, 128.60),
    "Goulburn": (-34.75, 149.72), "Albury": (-36.08, 146.92), "Seymour": (-37.03, 145.14), "Resende": (-22.47, -44.45),
    "Taubate": (-23.02, -45.55), "Zarate": (-34.10, -59.02), "Kroonstad": (-27.65, 27.23),
    "Strait of Dover": (51.02, 1.45), "Ambrose": (40.45, -73.80), "Nantucket": (40.60, -69.50),
    "Gibraltar": (35.95, -5.60), "Alboran": (36.20, -3.00), "Balearic": (38.50, 1.20), "Oresund": (55.95, 12.72),
    "Kattegat": (56.90, 11.60), "Skagen": (57.80, 11.00), "Skagerrak": (58.00, 9.60), "Inland Sea": (34.25, 133.30),
    "Bass Strait": (-39.50, 146.50), "Tasman": (-38.00, 155.00), "Golden Gate": (37.78, -122.70),
    "Monterey Bay": (36.70, -122.35), "Point Conception": (34.30, -120.60),
}

# What moves: symbol table and code, knots, SSID, how it reports, a word, and the way there (and back again).
ROUTES = """
/>|52|9|plain|I-95|NYC,Trenton,PHL,BAL,WAS
/k|48|14|mice|I-95 south|WAS,BAL,PHL,Trenton,NYC,New Haven,Providence,BOS
/v|46|9|mice|Thruway|NYC,ALB,Utica,SYR,Rochester,BUF
/u|50|14|plain|I-90|BUF,Erie,CLE,Toledo,Gary,CHI
/>|54|9|nmea|I-55|CHI,Springfield,STL
/>|55|9|mice|I-70|STL,Columbia MO,KSC
/U|40|2|plain|Coach|CHI,MKE
/>|57|9|plain|I-15|LAX,Barstow,LAS
/u|49|14|mice|CA-99|LAX,Bakersfield,FRE,SAC
/R|45|9|plain|Holiday|SEA,Centralia,PDX,Salem
/>|52|9|mice|I-85|ATL,Greenville,CLT,RDU
/v|53|9|nmea|I-35|DAL,Waco,AUS
/=|70|10|plain|The night train|TOR,Kingston,MTL
/>|50|9|plain|401|TOR,Kingston,OTT
/>|55|9|mice|M1|LON,Milton Keynes,BIR,Stoke,MAN
/k|46|14|plain|M6|BIR,Stoke,MAN,Carlisle,GLA
/>|50|9|nmea|M4|LON,Swindon,BRI
/=|85|10|mice|Intercity|LEE,EDI
/>|56|9|plain|A1 nord|PAR,Lille,BRU
/u|48|14|mice|A6|PAR,Dijon,LYO,Valence,MRS
/>|55|9|plain|AP-2|MAD,Calatayud,ZAR,Lleida,BCN
/>|62|9|mice|A3|CGN,FRA,Wurzburg,NUE
/>|65|9|plain|A9|MUC,Ingolstadt,NUE,Hof,LEJ,BER
/k|45|14|nmea|A24|HAM,Wittenberge,BER
/>|58|9|mice|A2|AMS,RTM,BRU
/=|90|10|plain|Gotthard|ZUR,Gotthard,Chiasso,MIL
/>|56|9|mice|A1 sole|MIL,BLQ,FLR,Arezzo,Orvieto,ROM,NAP
/>|54|9|plain|D1|PRG,Jihlava,BRN
/u|47|14|mice|D2|BRN,Breclav,VIE,Gyor,BUD
/>|55|9|plain|A2 zachod|BER,POZ,WAW
/>|50|9|mice|E18|OSL,Orebro,STO
/v|52|9|plain|E4|STO,Linkoping,Jonkoping,GOT
/>|48|9|nmea|Marmara|ANK,IST
/>|46|9|mice|Tomei|TYO,Gotemba,Shizuoka,Hamamatsu,NGO,OSA
/u|45|14|plain|Sanyo|OSA,Okayama,HIJ
/=|120|10|plain|Express|SEL,DJN,Daegu,PUS
/>|52|9|mice|Hume|SYD,Goulburn,CBR
/k|50|14|plain|Hume south|CBR,Albury,Seymour,MEL
/>|48|9|mice|Dutra|SAO,Taubate,Resende,RIO
/>|50|9|plain|Ruta 9|EZE,Zarate,ROS,COR
/>|55|9|mice|N1|JNB,Kroonstad,BFN
/>|42|9|plain|Yamuna|DEL,AGR
/s|14|8|plain|Channel ferry|Strait of Dover,Strait of Dover+0.05
/Y|6|5|mice|Under sail|Ambrose,Nantucket
/s|17|8|plain|Container ship|Gibraltar,Alboran,Balearic
/Y|7|5|plain|Regatta|Oresund,Kattegat,Skagen,Skagerrak
/s|12|8|mice|Coaster|Golden Gate,Monterey Bay,Point Conception
/Y|6|5|nmea|Round the bay|Bass Strait,Tasman
/^|440|7|plain|Heavy|NYC,BOS,HAL,REK,EDI,LON
/^|450|7|mice|Heavy|TYO,ANC,SEA
/^|430|7|plain|Heavy|SIN,JKT,PER,ADL,SYD,AKL
/'|110|7|plain|Cessna|DEN,SLC,LAS
/'|95|7|mice|Glider tug|ZUR,MUC,VIE
/X|105|6|plain|Mountain rescue|VAN,SEA
/O|38|11|plain|Balloon at 28,400 m|OMA,KSC,STL,NAS
/O|30|11|plain|School balloon|POZ,WAW
/[|4|7|plain|Out for a run|NYC,NYC+0.05
/b|11|4|mice|Velo|AMS,AMS+0.06
/<|60|10|plain|Motorcycle|LYO,Dijon
/P|35|9|plain|Patrol|AUS,AUS+0.08
/a|45|1|plain|Ambulance|PHX,PHX+0.08
/f|40|3|plain|Engine 7|CMH,CMH+0.06
/j|30|12|mice|Off the road|SLC,DEN
"""
